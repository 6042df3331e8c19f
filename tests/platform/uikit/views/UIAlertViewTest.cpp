#include "platform/uikit/views/UIAlertView.h"
#include "tests/support/MemoryWorld.h"

namespace prismo {
namespace {

struct AlertDelegate : UIAlertViewDelegate {
    void alertViewClickedButtonAtIndex(UIAlertView& alert, std::size_t index) override {
        clicked.emplace_back(&alert, index);
        if (topmostPresented<UIAlertView>().get() == &alert) calledWhileShown = true;
    }
    std::vector<std::pair<UIAlertView*, std::size_t>> clicked;
    bool calledWhileShown = false;
};

struct UIAlertViewTest : MemoryWorld {
    std::shared_ptr<AlertDelegate> delegate = std::make_shared<AlertDelegate>();
    std::shared_ptr<UIAlertView> alert =
        std::make_shared<UIAlertView>("Title", "Message", delegate, "Cancel");
};

TEST_F(UIAlertViewTest, KeepsItsTexts) {
    EXPECT_EQ(alert->title(), "Title");
    EXPECT_EQ(alert->message(), "Message");
    EXPECT_EQ(std::make_shared<UIAlertView>(std::nullopt, std::nullopt, nullptr, "OK")->title(),
              std::nullopt);
}

TEST_F(UIAlertViewTest, CancelButtonComesFirst) {
    alert->addButtonWithTitle("One");
    alert->addButtonWithTitle("Two");
    EXPECT_EQ(alert->buttonTitles(), (std::vector<std::string>{"Cancel", "One", "Two"}));
}

TEST_F(UIAlertViewTest, TagIsZeroUntilItIsSet) {
    EXPECT_EQ(alert->tag(), 0);
    alert->setTag(7);
    EXPECT_EQ(alert->tag(), 7);
}

TEST_F(UIAlertViewTest, IsKeptAliveWhileItIsShown) {
    const std::weak_ptr<UIAlertView> watched = alert;
    alert->show();
    alert = nullptr;
    ASSERT_FALSE(watched.expired());
    topmostPresented<UIAlertView>()->clickButtonAtIndex(0);
    EXPECT_TRUE(watched.expired());
}

TEST_F(UIAlertViewTest, ClickNotifiesTheDelegateAfterDismissingTheAlert) {
    alert->show();
    alert->clickButtonAtIndex(1);
    EXPECT_EQ(delegate->clicked, (std::vector<std::pair<UIAlertView*, std::size_t>>{{alert.get(), 1}}));
    EXPECT_FALSE(delegate->calledWhileShown);
    EXPECT_TRUE(UIApplication::sharedApplication()->presented().empty());
}

TEST_F(UIAlertViewTest, DelegateIsNotKeptAlive) {
    const std::weak_ptr<AlertDelegate> watched = delegate;
    delegate = nullptr;
    EXPECT_TRUE(watched.expired());
    alert->show();
    alert->clickButtonAtIndex(0);
    EXPECT_FALSE(topmostPresented<UIAlertView>());
}

TEST_F(UIAlertViewTest, DelegateHeldOnlyByTheAlertReceivesTheLastClick) {
    struct Handler : NSObject, AlertDelegate {};
    const auto handler = std::make_shared<Handler>();
    auto held = std::make_shared<UIAlertView>("Title", "Message", handler, "Cancel");
    held->setAssociatedObject("show", handler);
    held->show();
    auto& shown = *held;
    held = nullptr;
    shown.clickButtonAtIndex(0);
    EXPECT_EQ(handler->clicked.size(), 1U);
}

} // namespace
} // namespace prismo
