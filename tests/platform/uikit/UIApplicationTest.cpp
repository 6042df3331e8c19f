#include "platform/uikit/UIApplication.h"
#include "platform/uikit/controllers/UIViewController.h"
#include "platform/uikit/views/UIAlertView.h"
#include "tests/support/MemoryWorld.h"

#include <utility>

namespace prismo {
namespace {

using Lines = std::vector<std::string>;

/// Records the status bar's notifications, with the widths of the screen and the window at the time.
struct StatusBarWatcher : NSObject {
    static const Class& classObject() {
        static const Class objectClass(
            "StatusBarWatcher", &NSObject::classObject(), nullptr,
            {method<&StatusBarWatcher::frame>("frame:"), method<&StatusBarWatcher::rotated>("rotated:")});
        return objectClass;
    }
    const Class& isa() const override { return classObject(); }
    void frame(const std::shared_ptr<NSObject>& sender) { record("frame", sender); }
    void rotated(const std::shared_ptr<NSObject>& sender) { record("rotated", sender); }
    void record(const std::string& name, const std::shared_ptr<NSObject>& sender) {
        const auto& application = UIApplication::sharedApplication();
        EXPECT_EQ(sender, application);
        names.push_back(name);
        screens.push_back(application->mainScreen()->bounds().size.width);
        windows.push_back(application->keyWindow()->frame().size.width);
    }
    Lines names;
    std::vector<double> screens;
    std::vector<double> windows;
};

struct UIApplicationTest : MemoryWorld {
    UIApplicationTest() {
        device.notificationCenter().addObserver(
            watcher, "frame:", "UIApplicationWillChangeStatusBarFrameNotification");
        device.notificationCenter().addObserver(
            watcher, "rotated:", "UIApplicationDidChangeStatusBarOrientationNotification");
    }
    static UIApplication& application() { return *UIApplication::sharedApplication(); }

    std::shared_ptr<StatusBarWatcher> watcher = std::make_shared<StatusBarWatcher>();
};

TEST_F(UIApplicationTest, StartsWithAWindowThatFillsTheScreen) {
    EXPECT_EQ(application().mainScreen()->bounds(), (CGRect{{0, 0}, {320, 568}}));
    EXPECT_EQ(application().keyWindow()->frame(), (CGRect{{0, 0}, {320, 568}}));
    EXPECT_EQ(application().keyWindow()->windowLevel(), 0);
    EXPECT_TRUE(application().presented().empty());
}

TEST_F(UIApplicationTest, WindowLevelsHaveThePlatformsValues) {
    EXPECT_EQ(UIWindowLevelNormal, 0);
    EXPECT_EQ(UIWindowLevelStatusBar, 1000);
    EXPECT_EQ(UIWindowLevelAlert, 2000);
}

TEST_F(UIApplicationTest, MainScreenBelongsToTheApplication) {
    EXPECT_EQ(UIScreen::mainScreen(), application().mainScreen());
    application().setMainScreen(std::nullopt);
    EXPECT_EQ(UIScreen::mainScreen(), nullptr);
}

TEST_F(UIApplicationTest, RestartForgetsEverything) {
    application().present(std::make_shared<NSObject>());
    const auto former = UIApplication::sharedApplication();
    UIApplication::restart();
    EXPECT_NE(UIApplication::sharedApplication(), former);
    EXPECT_TRUE(application().presented().empty());
}

TEST_F(UIApplicationTest, NewSizeAppliesToScreenAndWindow) {
    application().setScreenSize({414, 736});
    EXPECT_EQ(application().mainScreen()->bounds(), (CGRect{{0, 0}, {414, 736}}));
    EXPECT_EQ(application().keyWindow()->frame(), (CGRect{{0, 0}, {414, 736}}));
}

TEST_F(UIApplicationTest, NewSizeInTheSameOrientationChangesOnlyTheFrame) {
    application().setScreenSize({414, 736});
    EXPECT_EQ(watcher->names, (Lines{"frame"}));
}

TEST_F(UIApplicationTest, RotationChangesTheFrameThenTheOrientation) {
    application().setScreenSize({568, 320});
    EXPECT_EQ(watcher->names, (Lines{"frame", "rotated"}));
    application().setScreenSize({320, 568});
    EXPECT_EQ(watcher->names, (Lines{"frame", "rotated", "frame", "rotated"}));
}

TEST_F(UIApplicationTest, SquareScreenIsPortrait) {
    application().setScreenSize({400, 400});
    EXPECT_EQ(watcher->names, (Lines{"frame"}));
}

TEST_F(UIApplicationTest, OrientationFollowsTheMainScreen) {
    EXPECT_EQ(application().statusBarOrientation(), UIInterfaceOrientation::portrait);
    application().setScreenSize({568, 320});
    EXPECT_EQ(application().statusBarOrientation(), UIInterfaceOrientation::landscapeRight);
    application().setScreenSize({400, 400});
    EXPECT_EQ(application().statusBarOrientation(), UIInterfaceOrientation::portrait);
    application().setMainScreen(std::nullopt);
    EXPECT_EQ(application().statusBarOrientation(), UIInterfaceOrientation::portrait);
}

TEST_F(UIApplicationTest, OrientationsHaveThePlatformsValues) {
    EXPECT_EQ(static_cast<int>(UIInterfaceOrientation::portrait), 1);
    EXPECT_EQ(static_cast<int>(UIInterfaceOrientation::landscapeRight), 3);
}

TEST_F(UIApplicationTest, RotationKeepsTheScreensScale) {
    application().setMainScreen(UIScreen({{0, 0}, {414, 736}}, 3));
    application().setScreenSize({736, 414});
    EXPECT_EQ(application().mainScreen()->scale(), 3);
}

TEST_F(UIApplicationTest, ScreenIsResizedBeforeTheFrameNotificationAndTheWindowAfterIt) {
    application().setScreenSize({568, 320});
    EXPECT_EQ(watcher->screens, (std::vector<double>{568, 568}));
    EXPECT_EQ(watcher->windows, (std::vector<double>{320, 568}));
}

TEST_F(UIApplicationTest, NewSizeCreatesAMissingScreenWithoutRotation) {
    for (const CGSize size : {CGSize{568, 320}, CGSize{320, 568}}) {
        application().setMainScreen(std::nullopt);
        application().setScreenSize(size);
        EXPECT_EQ(application().mainScreen()->bounds().size, size);
    }
    EXPECT_EQ(watcher->names, (Lines{"frame", "frame"}));
}

TEST_F(UIApplicationTest, NewSizeWorksWithoutAWindow) {
    watcher = nullptr;
    application().setKeyWindow(nullptr);
    application().setScreenSize({568, 320});
    EXPECT_EQ(application().mainScreen()->bounds().size, (CGSize{568, 320}));
}

TEST_F(UIApplicationTest, PresentedObjectsAreOrderedAndKeptAlive) {
    auto first = std::make_shared<NSObject>();
    const auto second = std::make_shared<NSObject>();
    const std::weak_ptr<NSObject> watched = first;
    application().present(first);
    application().present(second);
    EXPECT_EQ(application().presented(), (std::vector<std::shared_ptr<NSObject>>{first, second}));
    first = nullptr;
    EXPECT_FALSE(watched.expired());
    application().dismiss(application().presented().front());
    EXPECT_TRUE(watched.expired());
    EXPECT_EQ(application().presented(), (std::vector<std::shared_ptr<NSObject>>{second}));
}

TEST_F(UIApplicationTest, DismissingTheFirstKeepsAllOthers) {
    const auto other = std::make_shared<NSObject>();
    application().present(std::make_shared<NSObject>());
    application().present(other);
    application().present(other);
    application().dismiss(application().presented().front());
    EXPECT_EQ(application().presented(), (std::vector<std::shared_ptr<NSObject>>{other, other}));
}

TEST_F(UIApplicationTest, DismissingAnObjectNotPresentedChangesNothing) {
    application().present(std::make_shared<NSObject>());
    int changes = 0;
    const auto subscription = application().observe([&] { ++changes; });
    application().dismiss(std::make_shared<NSObject>());
    EXPECT_EQ(application().presented().size(), 1U);
    EXPECT_EQ(changes, 0);
}

TEST_F(UIApplicationTest, PresentingDismissingAndResizingNotifyObservers) {
    int changes = 0;
    const auto subscription = application().observe([&] { ++changes; });
    const auto object = std::make_shared<NSObject>();
    application().present(object);
    EXPECT_EQ(changes, 1);
    application().dismiss(object);
    EXPECT_EQ(changes, 2);
    application().setScreenSize({568, 320});
    EXPECT_EQ(changes, 3);
}

TEST_F(UIApplicationTest, TopmostOfAClassIsTheLastPresented) {
    const auto alert = [] { return std::make_shared<UIAlertView>("T", "M", nullptr, "OK"); };
    EXPECT_EQ(topmostPresented<UIAlertView>(), nullptr);
    application().present(alert());
    const auto last = alert();
    application().present(last);
    application().present(std::make_shared<UIViewController>());
    EXPECT_EQ(topmostPresented<UIAlertView>(), last);
}

TEST_F(UIApplicationTest, PresentedPageIsOnTop) {
    const auto sheet = std::make_shared<UIViewController>();
    std::make_shared<UIViewController>()->presentViewController(sheet, true);
    EXPECT_EQ(application().presented(), (std::vector<std::shared_ptr<NSObject>>{sheet}));
}

TEST_F(UIApplicationTest, PresentedPageKnowsItsPresenter) {
    const auto page = std::make_shared<UIViewController>();
    const auto sheet = std::make_shared<UIViewController>();
    EXPECT_EQ(sheet->presentingViewController(), nullptr);
    page->presentViewController(sheet, true);
    EXPECT_EQ(sheet->presentingViewController(), page);
    sheet->dismissViewController(true);
    EXPECT_EQ(sheet->presentingViewController(), nullptr);
    EXPECT_TRUE(application().presented().empty());
}

TEST_F(UIApplicationTest, AppearanceAppliesToExactlyOneClass) {
    const UIAppearance red{.segmentedControlTintColor = UIColor{1, 0, 0, 1},
                           .sliderMaximumTrackTintColor = {},
                           .switchOnTintColor = {}};
    int changes = 0;
    const auto subscription = application().observe([&] { ++changes; });
    application().setAppearanceWhenContainedIn(UIViewController::classObject(), red);
    const auto& asked = std::as_const(application());
    EXPECT_EQ(asked.appearanceWhenContainedIn(UIViewController::classObject()), red);
    EXPECT_EQ(asked.appearanceWhenContainedIn(NSObject::classObject()), UIAppearance());
    EXPECT_EQ(changes, 1);
}

TEST_F(UIApplicationTest, LinksGoToTheDevice) {
    device.setLinkSchemes({"mailto"});
    EXPECT_TRUE(application().canOpenURL("mailto:"));
    EXPECT_FALSE(application().canOpenURL("tweetbot:"));
    EXPECT_TRUE(application().openURL("mailto:a@example.com"));
    EXPECT_FALSE(application().openURL("http://example.com"));
    EXPECT_EQ(links(), (Lines{"canOpenURL mailto: yes", "canOpenURL tweetbot: no",
                              "openURL mailto:a@example.com yes", "openURL http://example.com no"}));
}

} // namespace
} // namespace prismo
