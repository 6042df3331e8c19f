// What appears over the pages: alerts, the compose sheet, the banner.

#include "settings/model/overlays/Alert.h"
#include "settings/model/overlays/Banner.h"
#include "settings/model/overlays/Compose.h"
#include "tests/settings/model/PhoneWorld.h"

#include "kit/FBWelcomeTwitterHandler.h"

#include <QColor>
#include <utility>

namespace prismo::settings {
namespace {

struct OverlaysTest : PhoneWorld {
    template <typename Overlay>
    Overlay& overlay() {
        settle();
        return dynamic_cast<Overlay&>(*phone.overlays()->top());
    }
};

TEST_F(OverlaysTest, AlertHasItsTextsAndButtons) {
    FBShowTwitterFollowAlert("Title", "Message", "somebody");
    EXPECT_EQ(overlay<Alert>().title(), "Title");
    EXPECT_EQ(overlay<Alert>().message(), "Message");
    EXPECT_EQ(overlay<Alert>().buttons(), QStringList({"No thanks!", "I'd love to!"}));
}

TEST_F(OverlaysTest, ButtonClosesTheAlert) {
    FBShowTwitterFollowAlert("Title", "Message", "somebody");
    overlay<Alert>().click(0);
    settle();
    EXPECT_EQ(phone.overlays()->depth(), 0);
}

/// Counts answers, and can show the alert once more.
struct Answers : UIAlertViewDelegate {
    void alertViewClickedButtonAtIndex(UIAlertView& alert, std::size_t /*index*/) override {
        ++count;
        if (std::exchange(asksAgain, false)) alert.show();
    }
    int count = 0;
    bool asksAgain = false;
};

TEST_F(OverlaysTest, AlertIsAnsweredOnlyOnce) {
    const auto answers = std::make_shared<Answers>();
    std::make_shared<UIAlertView>("Title", "Message", answers, "Cancel")->show();
    auto& shown = overlay<Alert>();
    shown.click(0);
    shown.click(0);
    settle();
    shown.click(0);
    settle();
    EXPECT_EQ(answers->count, 1);
}

TEST_F(OverlaysTest, AlertShownAgainIsAnsweredAgain) {
    const auto answers = std::make_shared<Answers>();
    answers->asksAgain = true;
    std::make_shared<UIAlertView>("Title", "Message", answers, "Cancel")->show();
    overlay<Alert>().click(0);
    overlay<Alert>().click(0);
    settle();
    EXPECT_EQ(answers->count, 2);
    EXPECT_EQ(phone.overlays()->depth(), 0);
}

TEST_F(OverlaysTest, ComposeSheetSendsItsText) {
    device.setLinkSchemes({"https"});
    openModule();
    top().tapRightButton();
    overlay<Compose>().setText("a b");
    overlay<Compose>().send();
    settle();
    ASSERT_EQ(links().size(), 1U);
    EXPECT_EQ(links()[0], "openURL https://twitter.com/intent/tweet?text=a%20b yes");
}

TEST_F(OverlaysTest, ComposeSheetSendsOnlyOnce) {
    device.setLinkSchemes({"https"});
    openModule();
    top().tapRightButton();
    auto& sheet = overlay<Compose>();
    sheet.send();
    sheet.send();
    settle();
    sheet.send();
    settle();
    EXPECT_EQ(links().size(), 1U);
}

struct BannerTest : PhoneWorld {
    BannerTest() {
        openModule();
        device.postFromOutside(changeNotification);
        settle();
    }
    Banner& banner() { return dynamic_cast<Banner&>(*phone.banners().first().value<QObject*>()); }
};

TEST_F(BannerTest, CoversTheStatusBar) {
    EXPECT_TRUE(phone.coversStatusBar());
    EXPECT_EQ(banner().title(), "Prismo 2 – Tap to Respring?");
    EXPECT_TRUE(banner().isBold());
    EXPECT_EQ(banner().titleColor(), QColor("#ffffff"));
}

TEST_F(BannerTest, FadesInWithTheAnimation) {
    // The page's 35 ms wait has passed; the animation takes 300 ms.
    const auto start = banner().opacity();
    EXPECT_LT(start, 0.5);
    runFor(0.1);
    EXPECT_GT(banner().opacity(), start);
    runFor(0.4);
    EXPECT_EQ(banner().opacity(), 1);
}

TEST_F(BannerTest, FollowsTheWindowWidth) {
    phone.setSize(700, 400);
    settle();
    EXPECT_EQ(banner().frame(), QRectF(0, 0, 700, 20));
}

TEST_F(BannerTest, TapSendsItsAction) {
    banner().tap();
    settle();
    EXPECT_EQ(effectsOfKind("spawn").size(), 1U);
}

TEST_F(BannerTest, DisappearsWhenItsTimeIsUp) {
    runFor(7);
    settle();
    EXPECT_TRUE(phone.banners().isEmpty());
    EXPECT_FALSE(phone.coversStatusBar());
}

} // namespace
} // namespace prismo::settings
