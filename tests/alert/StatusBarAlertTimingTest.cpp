#include "tests/alert/BannerWorld.h"

namespace prismo {
namespace {

using namespace std::chrono_literals;

// 0.3 in single precision is 0.30000001192092896 seconds.
constexpr auto fade = 300'000'012ns;

struct StatusBarAlertTimingTest : BannerWorld {
    void shownFully() {
        EXPECT_EQ(button().alpha(), 1);
        EXPECT_FALSE(button().isHidden());
        EXPECT_EQ(button().superview(), window);
        EXPECT_EQ(window->windowLevel(), 1000);
    }
    void fadingOut() {
        EXPECT_EQ(button().alpha(), 0);
        EXPECT_FALSE(button().isHidden());
        EXPECT_EQ(button().superview(), window);
        EXPECT_EQ(window->windowLevel(), 0);
    }
    void offScreen() {
        EXPECT_EQ(button().alpha(), 0);
        EXPECT_TRUE(button().isHidden());
        EXPECT_EQ(button().superview(), nullptr);
        EXPECT_EQ(window->windowLevel(), 0);
    }
    /// How often the window changes while `act` happens.
    template <typename Act>
    int windowChanges(Act act) {
        int changes = 0;
        const auto subscription = window->observe([&] { ++changes; });
        act();
        return changes;
    }
};

TEST_F(StatusBarAlertTimingTest, FadesInOverThreeTenthsInSinglePrecision) {
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

TEST_F(StatusBarAlertTimingTest, StaysForItsSecondsOnceItHasFadedIn) {
    make();
    banner->showOverlayForSeconds(5.5F);
    shownFully();
    runTo(fade + 5500ms - 1ns);
    shownFully();
    runTo(fade + 5500ms);
    fadingOut();
}

TEST_F(StatusBarAlertTimingTest, WindowDropsAtTheStartOfTheFadeOutAndTheButtonGoesAtItsEnd) {
    make();
    banner->showOverlayForSeconds(1);
    const auto hiding = fade + 1s;
    runTo(hiding + fade / 2);
    fadingOut();
    EXPECT_EQ(button().presentationAlpha(), 0.5);
    runTo(hiding + fade - 1ns);
    fadingOut();
    runTo(hiding + fade);
    offScreen();
    EXPECT_EQ(device.runLoop().nextDeadline(), std::nullopt);
}

TEST_F(StatusBarAlertTimingTest, EndOfTheFadeOutLeavesTheWindowsLevelAlone) {
    make();
    banner->hideOverlay();
    window->setWindowLevel(5);
    runTo(fade);
    EXPECT_TRUE(button().isHidden());
    EXPECT_EQ(window->windowLevel(), 5);
}

TEST_F(StatusBarAlertTimingTest, SecondsAreTakenInSinglePrecision) {
    make();
    banner->showOverlayForSeconds(0.1F); // 0.10000000149011612
    runTo(fade + 100'000'000ns);
    shownFully();
    runTo(fade + 100'000'001ns);
    fadingOut();
}

TEST_F(StatusBarAlertTimingTest, NoSecondsAtAllHideItAsSoonAsItIsShown) {
    make();
    banner->showOverlayForSeconds(0);
    runTo(fade - 1ns);
    shownFully();
    runTo(fade + 1ns); // the timer is made at `fade` and called on the turn after that
    fadingOut();
    EXPECT_EQ(button().animationEnd(), fade + fade);
}

TEST_F(StatusBarAlertTimingTest, EarlierTimerHidesABannerThatWasShownAgain) {
    make();
    banner->showOverlayForSeconds(5.5F);
    runTo(1s);
    banner->showOverlayForSeconds(5.5F);
    runTo(fade + 5500ms - 1ns);
    shownFully();
    runTo(fade + 5500ms);
    fadingOut();
    runTo(fade + 5500ms + fade);
    offScreen();
}

TEST_F(StatusBarAlertTimingTest, LaterTimerHidesTheHiddenBannerAgain) {
    make();
    banner->showOverlayForSeconds(5.5F);
    runTo(1s);
    banner->showOverlayForSeconds(5.5F);
    runTo(6500ms);
    offScreen();
    window->setWindowLevel(5);
    button().setHidden(false);
    runTo(1s + fade + 5500ms - 1ns);
    EXPECT_EQ(window->windowLevel(), 5);
    runTo(1s + fade + 5500ms);
    EXPECT_EQ(window->windowLevel(), 0);
    EXPECT_FALSE(button().isHidden());
    runTo(1s + fade + 5500ms + fade);
    offScreen();
    EXPECT_EQ(device.runLoop().nextDeadline(), std::nullopt);
}

TEST_F(StatusBarAlertTimingTest, HiddenBannerCanBeShownAgain) {
    make();
    banner->showOverlayForSeconds(1);
    runFor(10);
    offScreen();
    const auto start = now();
    banner->showOverlayForSeconds(1);
    shownFully();
    EXPECT_EQ(button().presentationAlpha(), 0);
    runTo(start + fade + 1s);
    fadingOut();
}

TEST_F(StatusBarAlertTimingTest, ShowWhileShownDoesNotFadeInAgain) {
    make();
    banner->showOverlayForSeconds(5.5F);
    runTo(1s);
    banner->showOverlayForSeconds(5.5F);
    EXPECT_EQ(button().presentationAlpha(), 1);
}

TEST_F(StatusBarAlertTimingTest, HidingABannerThatWasNeverShownHidesItsButton) {
    make();
    window->setWindowLevel(5);
    banner->hideOverlay();
    EXPECT_EQ(window->windowLevel(), 0);
    EXPECT_FALSE(button().isHidden());
    runTo(fade);
    offScreen();
}

TEST_F(StatusBarAlertTimingTest, HideOverlayIsSentByName) {
    make();
    banner->showOverlayForSeconds(5.5F);
    banner->performSelector("hideOverlay");
    fadingOut();
}

TEST_F(StatusBarAlertTimingTest, TapDoesNotShortenItsTime) {
    make(std::nullopt, "tapped:", target);
    banner->showOverlayForSeconds(5.5F);
    runTo(2s);
    button().sendActionsForControlEvents(UIControlEventTouchUpInside);
    runTo(fade + 5500ms - 1ns);
    shownFully();
    runTo(fade + 5500ms);
    fadingOut();
}

TEST_F(StatusBarAlertTimingTest, PostedNameShowsItForFiveAndAHalfSeconds) {
    make("com.example.changed");
    device.postNotification("com.example.changed");
    EXPECT_EQ(button().alpha(), 0);
    runTo(0ns);
    shownFully();
    runTo(fade + 5500ms - 1ns);
    shownFully();
    runTo(fade + 5500ms);
    fadingOut();
}

TEST_F(StatusBarAlertTimingTest, PostOfAnotherProcessShowsItEachTime) {
    make("com.example.changed");
    for (int i = 0; i < 2; ++i) {
        device.postFromOutside("com.example.changed");
        runFor(0);
        shownFully();
        runFor(10);
        offScreen();
    }
}

TEST_F(StatusBarAlertTimingTest, OtherNamesDoNotShowIt) {
    make("com.example.changed");
    device.postFromOutside("com.example.other");
    runFor(0);
    EXPECT_EQ(button().alpha(), 0);
}

TEST_F(StatusBarAlertTimingTest, WithoutANameNothingIsArmed) {
    make();
    EXPECT_EQ(banner->notification(), std::nullopt);
    for (const auto* name : {"com.example.changed", "com.corvane.prismo2.changed"}) {
        device.postFromOutside(name);
        EXPECT_EQ(device.runLoop().nextDeadline(), std::nullopt) << name;
    }
}

TEST_F(StatusBarAlertTimingTest, PostsDuringASuspensionShowItOnceAfterIt) {
    make("com.example.changed");
    const int ofOneShow = windowChanges([&] { banner->showOverlayForSeconds(1); });
    runFor(10);
    device.systemCenter().setSuspended(true);
    for (int i = 0; i < 2; ++i) {
        device.postFromOutside("com.example.changed");
        runFor(0);
    }
    offScreen();
    EXPECT_EQ(windowChanges([&] { device.systemCenter().setSuspended(false); }), ofOneShow);
    shownFully();
}

TEST_F(StatusBarAlertTimingTest, ObserverThatIsNoBannerIsLeftAlone) {
    make();
    showStatusBarAlert(nullptr);
    showStatusBarAlert(std::make_shared<NSObject>());
    EXPECT_EQ(device.runLoop().nextDeadline(), std::nullopt);
    showStatusBarAlert(banner);
    shownFully();
}

TEST_F(StatusBarAlertTimingTest, LivesUntilItHasGoneOffScreen) {
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
