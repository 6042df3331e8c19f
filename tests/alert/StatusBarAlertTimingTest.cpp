#include "tests/alert/BannerWorld.h"

namespace prismo {
namespace {

using namespace std::chrono_literals;

// 0.3 in single precision is 0.30000001192092896 seconds.
constexpr auto fade = 300'000'012ns;

struct StatusBarAlertTimingTest : BannerWorld {
    void expectShown() {
        EXPECT_EQ(button().alpha(), 1);
        EXPECT_FALSE(button().isHidden());
        EXPECT_EQ(button().superview(), window);
        EXPECT_EQ(window->windowLevel(), 1000);
    }
    void expectFadingOut() {
        EXPECT_EQ(button().alpha(), 0);
        EXPECT_FALSE(button().isHidden());
        EXPECT_EQ(button().superview(), window);
        EXPECT_EQ(window->windowLevel(), 0);
    }
    void expectOffScreen() {
        EXPECT_EQ(button().alpha(), 0);
        EXPECT_TRUE(button().isHidden());
        EXPECT_EQ(button().superview(), nullptr);
        EXPECT_EQ(window->windowLevel(), 0);
    }
    /// How often the window changes during `act`.
    template <typename Act>
    int windowChanges(Act act) {
        int changes = 0;
        const auto subscription = window->observe([&] { ++changes; });
        act();
        return changes;
    }
};

TEST_F(StatusBarAlertTimingTest, FadesInOverThreeTenthsOfASecondInSinglePrecision) {
    make();
    banner->showOverlayForSeconds(5.5F);
    EXPECT_EQ(button().presentationAlpha(), 0);
    runTo(fade / 2);
    EXPECT_EQ(button().presentationAlpha(), 0.5);
    runTo(fade - 1ns);
    EXPECT_LT(button().presentationAlpha(), 1);
    runTo(fade);
    EXPECT_EQ(button().presentationAlpha(), 1);
    EXPECT_EQ(button().animationEnd(), fade);
}

TEST_F(StatusBarAlertTimingTest, StaysForTheGivenTimeAfterFadingIn) {
    make();
    banner->showOverlayForSeconds(5.5F);
    expectShown();
    runTo(fade + 5500ms - 1ns);
    expectShown();
    runTo(fade + 5500ms);
    expectFadingOut();
}

TEST_F(StatusBarAlertTimingTest, FadeOutDropsTheWindowAtItsStartAndRemovesTheButtonAtItsEnd) {
    make();
    banner->showOverlayForSeconds(1);
    const auto hiding = fade + 1s;
    runTo(hiding + fade / 2);
    expectFadingOut();
    EXPECT_EQ(button().presentationAlpha(), 0.5);
    runTo(hiding + fade - 1ns);
    expectFadingOut();
    runTo(hiding + fade);
    expectOffScreen();
    EXPECT_EQ(device.runLoop().nextDeadline(), std::nullopt);
}

TEST_F(StatusBarAlertTimingTest, EndOfTheFadeOutKeepsTheWindowLevel) {
    make();
    banner->hideOverlay();
    window->setWindowLevel(5);
    runTo(fade);
    EXPECT_TRUE(button().isHidden());
    EXPECT_EQ(window->windowLevel(), 5);
}

TEST_F(StatusBarAlertTimingTest, SecondsAreSinglePrecision) {
    make();
    banner->showOverlayForSeconds(0.1F); // 0.10000000149011612
    runTo(fade + 100'000'000ns);
    expectShown();
    runTo(fade + 100'000'001ns);
    expectFadingOut();
}

TEST_F(StatusBarAlertTimingTest, ZeroSecondsHideItAsSoonAsItHasFadedIn) {
    make();
    banner->showOverlayForSeconds(0);
    runTo(fade - 1ns);
    expectShown();
    runTo(fade + 1ns); // the timer starts at `fade` and fires on the next turn
    expectFadingOut();
    EXPECT_EQ(button().animationEnd(), fade + fade);
}

TEST_F(StatusBarAlertTimingTest, EarlierTimerHidesABannerShownAgain) {
    make();
    banner->showOverlayForSeconds(5.5F);
    runTo(1s);
    banner->showOverlayForSeconds(5.5F);
    runTo(fade + 5500ms - 1ns);
    expectShown();
    runTo(fade + 5500ms);
    expectFadingOut();
    runTo(fade + 5500ms + fade);
    expectOffScreen();
}

TEST_F(StatusBarAlertTimingTest, LaterTimerHidesAHiddenBannerAgain) {
    make();
    banner->showOverlayForSeconds(5.5F);
    runTo(1s);
    banner->showOverlayForSeconds(5.5F);
    runTo(6500ms);
    expectOffScreen();
    window->setWindowLevel(5);
    button().setHidden(false);
    runTo(1s + fade + 5500ms - 1ns);
    EXPECT_EQ(window->windowLevel(), 5);
    runTo(1s + fade + 5500ms);
    EXPECT_EQ(window->windowLevel(), 0);
    EXPECT_FALSE(button().isHidden());
    runTo(1s + fade + 5500ms + fade);
    expectOffScreen();
    EXPECT_EQ(device.runLoop().nextDeadline(), std::nullopt);
}

TEST_F(StatusBarAlertTimingTest, HiddenBannerCanBeShownAgain) {
    make();
    banner->showOverlayForSeconds(1);
    runFor(10);
    expectOffScreen();
    const auto start = now();
    banner->showOverlayForSeconds(1);
    expectShown();
    EXPECT_EQ(button().presentationAlpha(), 0);
    runTo(start + fade + 1s);
    expectFadingOut();
}

TEST_F(StatusBarAlertTimingTest, ShowingAShownBannerDoesNotFadeInAgain) {
    make();
    banner->showOverlayForSeconds(5.5F);
    runTo(1s);
    banner->showOverlayForSeconds(5.5F);
    EXPECT_EQ(button().presentationAlpha(), 1);
}

TEST_F(StatusBarAlertTimingTest, HidingABannerNeverShownHidesItsButton) {
    make();
    window->setWindowLevel(5);
    banner->hideOverlay();
    EXPECT_EQ(window->windowLevel(), 0);
    EXPECT_FALSE(button().isHidden());
    runTo(fade);
    expectOffScreen();
}

TEST_F(StatusBarAlertTimingTest, HideOverlayCanBeSentByName) {
    make();
    banner->showOverlayForSeconds(5.5F);
    banner->performSelector("hideOverlay");
    expectFadingOut();
}

TEST_F(StatusBarAlertTimingTest, TapDoesNotHideItSooner) {
    make(std::nullopt, "tapped:", target);
    banner->showOverlayForSeconds(5.5F);
    runTo(2s);
    button().sendActionsForControlEvents(UIControlEventTouchUpInside);
    runTo(fade + 5500ms - 1ns);
    expectShown();
    runTo(fade + 5500ms);
    expectFadingOut();
}

TEST_F(StatusBarAlertTimingTest, NotificationShowsItForFiveAndAHalfSeconds) {
    make("com.example.changed");
    device.postNotification("com.example.changed");
    EXPECT_EQ(button().alpha(), 0);
    runTo(0ns);
    expectShown();
    runTo(fade + 5500ms - 1ns);
    expectShown();
    runTo(fade + 5500ms);
    expectFadingOut();
}

TEST_F(StatusBarAlertTimingTest, EveryPostFromAnotherProcessShowsIt) {
    make("com.example.changed");
    for (int i = 0; i < 2; ++i) {
        device.postFromOutside("com.example.changed");
        runFor(0);
        expectShown();
        runFor(10);
        expectOffScreen();
    }
}

TEST_F(StatusBarAlertTimingTest, OtherNotificationsDoNotShowIt) {
    make("com.example.changed");
    device.postFromOutside("com.example.other");
    runFor(0);
    EXPECT_EQ(button().alpha(), 0);
}

TEST_F(StatusBarAlertTimingTest, WithoutANameNothingIsObserved) {
    make();
    EXPECT_EQ(banner->notification(), std::nullopt);
    for (const auto* name : {"com.example.changed", "com.corvane.prismo2.changed"}) {
        device.postFromOutside(name);
        EXPECT_EQ(device.runLoop().nextDeadline(), std::nullopt) << name;
    }
}

TEST_F(StatusBarAlertTimingTest, PostsWhileSuspendedShowItOnceOnResume) {
    make("com.example.changed");
    const int changesPerShow = windowChanges([&] { banner->showOverlayForSeconds(1); });
    runFor(10);
    device.systemCenter().setSuspended(true);
    for (int i = 0; i < 2; ++i) {
        device.postFromOutside("com.example.changed");
        runFor(0);
    }
    expectOffScreen();
    EXPECT_EQ(windowChanges([&] { device.systemCenter().setSuspended(false); }), changesPerShow);
    expectShown();
}

TEST_F(StatusBarAlertTimingTest, ObserverThatIsNotABannerIsIgnored) {
    make();
    showStatusBarAlert(nullptr);
    showStatusBarAlert(std::make_shared<NSObject>());
    EXPECT_EQ(device.runLoop().nextDeadline(), std::nullopt);
    showStatusBarAlert(banner);
    expectShown();
}

TEST_F(StatusBarAlertTimingTest, StaysAliveUntilItIsOffScreen) {
    make();
    const std::weak_ptr<SWStatusBarAlert> watched = banner;
    banner->showOverlayForSeconds(1);
    banner = nullptr;
    runTo(fade + 1s + fade - 1ns);
    EXPECT_FALSE(watched.expired());
    runTo(fade + 1s + fade);
    EXPECT_TRUE(watched.expired());
    EXPECT_TRUE(window->subviews().empty());
}

TEST_F(StatusBarAlertTimingTest, ReleasedBannerIsNeverCalled) {
    make("com.example.changed");
    banner = nullptr;
    device.postFromOutside("com.example.changed");
    UIApplication::sharedApplication()->setScreenSize({568, 320});
    runFor(0);
    EXPECT_TRUE(window->subviews().empty());
    EXPECT_EQ(window->windowLevel(), 0);
}

} // namespace
} // namespace prismo
