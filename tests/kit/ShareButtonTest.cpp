#include "kit/FBAddTwitterShareButton.h"
#include "kit/FBTwitterShareHandler.h"
#include "tests/support/MemoryWorld.h"

#include "platform/social/SLComposeViewController.h"
#include "platform/uikit/graphics/UIGraphics.h"

namespace prismo {
namespace {

struct ShareButtonTest : MemoryWorld {
    std::shared_ptr<FBBarButtonItem> add(const std::shared_ptr<UIViewController>& owner,
                                         const std::string& text = "Look at this!") {
        FBAddTwitterShareButton(owner, image, text);
        return buttonOf(owner);
    }
    static std::shared_ptr<FBBarButtonItem> buttonOf(const std::shared_ptr<UIViewController>& owner) {
        return std::dynamic_pointer_cast<FBBarButtonItem>(owner->navigationItem().rightBarButtonItem());
    }
    static std::shared_ptr<SLComposeViewController> sheet() {
        return topmostPresented<SLComposeViewController>();
    }

    std::shared_ptr<UIImage> image = std::make_shared<UIImage>(CGSize{29, 25}, Data{1, 2});
    std::shared_ptr<UIViewController> page = std::make_shared<UIViewController>();
};

TEST_F(ShareButtonTest, ButtonHasImagePageAndText) {
    const auto button = add(page);
    ASSERT_TRUE(button);
    EXPECT_EQ(button->image(), image);
    EXPECT_EQ(button->style(), UIBarButtonItemStyle::plain);
    EXPECT_EQ(button->container(), page);
    EXPECT_EQ(button->shareText(), "Look at this!");
}

TEST_F(ShareButtonTest, ButtonTargetsTheSharedHandler) {
    const auto button = add(page);
    EXPECT_EQ(button->action().target.lock(), FBTwitterShareHandler::sharedInstance());
    EXPECT_EQ(button->action().selector, "shareTapped:");
}

TEST_F(ShareButtonTest, ButtonHasATransparentBackground) {
    const auto button = add(page);
    ASSERT_TRUE(button->backgroundImage());
    EXPECT_EQ(button->backgroundImage()->size(), (CGSize{20, 20}));
    EXPECT_TRUE(button->backgroundImage()->data().empty());
    EXPECT_EQ(button->backgroundImage()->opacity(), UIGraphicsOpacity::transparent);
    EXPECT_EQ(button->backgroundImage()->scale(), UIScreen::mainScreen()->scale());
}

TEST_F(ShareButtonTest, CreatingTheBackgroundLeavesNoContextOpen) {
    add(page);
    EXPECT_EQ(UIGraphicsGetImageFromCurrentImageContext(), nullptr);
}

TEST_F(ShareButtonTest, ButtonIsCompleteWhenTheBarGetsIt) {
    std::vector<std::string> texts;
    const auto subscription = page->navigationItem().observe([&] {
        const auto button = buttonOf(page);
        if (button->container() == page && button->backgroundImage()) texts.push_back(button->shareText());
    });
    add(page);
    EXPECT_EQ(texts, (std::vector<std::string>{"Look at this!"}));
}

TEST_F(ShareButtonTest, ButtonWorksWithoutAnImage) {
    image = nullptr;
    const auto button = add(page);
    ASSERT_TRUE(button);
    EXPECT_EQ(button->image(), nullptr);
    button->tap();
    EXPECT_TRUE(sheet());
}

TEST_F(ShareButtonTest, SecondButtonReplacesTheFirst) {
    const std::weak_ptr<FBBarButtonItem> first = add(page, "first");
    const auto second = add(page, "second");
    EXPECT_TRUE(first.expired());
    EXPECT_EQ(second->shareText(), "second");
}

TEST_F(ShareButtonTest, AnyOtherRightButtonIsReplaced) {
    page->navigationItem().setRightBarButtonItem(std::make_shared<UIBarButtonItem>());
    EXPECT_TRUE(add(page));
}

TEST_F(ShareButtonTest, AllButtonsShareOneHandler) {
    const auto first = FBTwitterShareHandler::sharedInstance();
    ASSERT_TRUE(first);
    add(page);
    EXPECT_EQ(FBTwitterShareHandler::sharedInstance(), first);
    EXPECT_EQ(add(std::make_shared<UIViewController>())->action().target.lock(), first);
}

TEST_F(ShareButtonTest, TapPresentsATwitterSheetWithTheText) {
    add(page, "«Look» & that")->tap();
    ASSERT_TRUE(sheet());
    EXPECT_EQ(sheet()->serviceType(), SLServiceTypeTwitter);
    EXPECT_EQ(sheet()->text(), "«Look» & that");
    EXPECT_EQ(UIApplication::sharedApplication()->presented().size(), 1U);
}

TEST_F(ShareButtonTest, TapRequestsNoAccountAndOpensNothing) {
    add(page)->tap();
    EXPECT_TRUE(effects.empty());
    EXPECT_EQ(device.runLoop().nextDeadline(), std::nullopt);
}

TEST_F(ShareButtonTest, EveryTapPresentsItsOwnSheet) {
    const auto button = add(page);
    button->tap();
    const auto first = sheet();
    button->tap();
    EXPECT_NE(sheet(), first);
    EXPECT_EQ(UIApplication::sharedApplication()->presented().size(), 2U);
}

TEST_F(ShareButtonTest, TapUsesTheTappedButtonsPageAndText) {
    const auto other = std::make_shared<UIViewController>();
    const auto first = add(page, "first");
    const auto second = add(other, "second");
    first->tap();
    EXPECT_EQ(sheet()->text(), "first");
    EXPECT_EQ(sheet()->presentingViewController(), page);
    second->tap();
    EXPECT_EQ(sheet()->text(), "second");
    EXPECT_EQ(sheet()->presentingViewController(), other);
}

TEST_F(ShareButtonTest, TextCanBeChangedUntilTheTap) {
    const auto button = add(page);
    button->setShareText("newer");
    button->tap();
    EXPECT_EQ(sheet()->text(), "newer");
}

TEST_F(ShareButtonTest, ButtonDoesNotKeepItsPageAlive) {
    const auto button = add(page);
    const std::weak_ptr<UIViewController> watched = page;
    page = nullptr;
    EXPECT_TRUE(watched.expired());
    EXPECT_EQ(button->container(), nullptr);
}

TEST_F(ShareButtonTest, ButtonWithoutAPagePresentsNothing) {
    const auto button = add(page);
    page = nullptr;
    button->tap();
    EXPECT_FALSE(sheet());
}

TEST_F(ShareButtonTest, PageOwnsTheButton) {
    const std::weak_ptr<FBBarButtonItem> watched = add(page);
    EXPECT_FALSE(watched.expired());
    page = nullptr;
    EXPECT_TRUE(watched.expired());
}

TEST_F(ShareButtonTest, ClassesHaveTheirNames) {
    EXPECT_EQ(add(page)->isa().name(), "FBBarButtonItem");
    EXPECT_EQ(FBTwitterShareHandler::sharedInstance()->isa().name(), "FBTwitterShareHandler");
}

} // namespace
} // namespace prismo
