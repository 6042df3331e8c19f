// The banner and its look. For when it is shown, see StatusBarAlertTimingTest.

#include "tests/alert/BannerWorld.h"

#include <cmath>
#include <limits>

namespace prismo {
namespace {

struct StatusBarAlertTest : BannerWorld {};

TEST_F(StatusBarAlertTest, IsNotShownAtCreation) {
    make();
    EXPECT_EQ(button().alpha(), 0);
    EXPECT_FALSE(button().isHidden());
    EXPECT_EQ(button().superview(), nullptr);
    EXPECT_EQ(button().title(), "");
    EXPECT_EQ(window->windowLevel(), 0);
    EXPECT_EQ(device.runLoop().nextDeadline(), std::nullopt);
}

TEST_F(StatusBarAlertTest, IsTwentyPointsHighAndAsWideAsTheScreen) {
    UIApplication::sharedApplication()->setMainScreen(UIScreen({{5, 7}, {414, 736}}));
    make();
    EXPECT_EQ(button().frame(), (CGRect{{0, 0}, {414, 20}}));
    EXPECT_EQ(button().autoresizingMask(), 18U);
}

TEST_F(StatusBarAlertTest, KeepsItsCreationArguments) {
    make("com.example.changed", "tapped:", target);
    EXPECT_EQ(banner->message(), "Something changed");
    EXPECT_EQ(banner->notification(), "com.example.changed");
    EXPECT_EQ(banner->action(), "tapped:");
    EXPECT_EQ(banner->target(), target);
    EXPECT_EQ(banner->applicationWindow(), window);
}

TEST_F(StatusBarAlertTest, IsLightGrayWithBlackTextByDefault) {
    make();
    EXPECT_EQ(banner->backgroundColor(), (UIColor{0.96, 0.96, 0.96, 1}));
    EXPECT_EQ(banner->textColor(), (UIColor{0, 0, 0, 1}));
    EXPECT_EQ(button().backgroundColor(), (UIColor{0.96, 0.96, 0.96, 1}));
}

TEST_F(StatusBarAlertTest, ShowAppliesMessageColorsAndFont) {
    make();
    banner->setMessage("Hello – there");
    banner->setBackgroundColor({0, 0.5, 1, 0.9});
    banner->setTextColor({1, 1, 1, 1});
    EXPECT_EQ(button().backgroundColor(), (UIColor{0.96, 0.96, 0.96, 1}));
    banner->showOverlayForSeconds(1);
    EXPECT_EQ(button().title(), "Hello – there");
    EXPECT_EQ(button().backgroundColor(), (UIColor{0, 0.5, 1, 0.9}));
    EXPECT_EQ(button().titleColor(), (UIColor{1, 1, 1, 1}));
    EXPECT_EQ(button().titleLabel()->font(), (UIFont{.pointSize = 12, .isBold = true}));
}

TEST_F(StatusBarAlertTest, ChangesTakeEffectAtTheNextShow) {
    make();
    banner->showOverlayForSeconds(1);
    banner->setMessage("Later");
    banner->setBackgroundColor({1, 0, 0, 1});
    banner->setTextColor({0, 1, 0, 1});
    EXPECT_EQ(button().title(), "Something changed");
    EXPECT_EQ(button().backgroundColor(), (UIColor{0.96, 0.96, 0.96, 1}));
    EXPECT_EQ(button().titleColor(), (UIColor{0, 0, 0, 1}));
    banner->showOverlayForSeconds(1);
    EXPECT_EQ(button().title(), "Later");
    EXPECT_EQ(button().backgroundColor(), (UIColor{1, 0, 0, 1}));
    EXPECT_EQ(button().titleColor(), (UIColor{0, 1, 0, 1}));
}

TEST_F(StatusBarAlertTest, ShowPutsTheButtonInFrontOfTheWindow) {
    make();
    const auto other = std::make_shared<UIView>();
    window->addSubview(other);
    banner->showOverlayForSeconds(1);
    EXPECT_EQ(window->subviews(), (std::vector<std::shared_ptr<UIView>>{other, banner->actionButton()}));
    window->addSubview(other);
    banner->showOverlayForSeconds(1);
    EXPECT_EQ(window->subviews(), (std::vector<std::shared_ptr<UIView>>{other, banner->actionButton()}));
}

TEST_F(StatusBarAlertTest, WindowIsRaisedBeforeTheButtonIsAdded) {
    make();
    std::vector<double> levels;
    const auto subscription = window->observe([&] {
        if (!window->subviews().empty()) levels.push_back(window->windowLevel());
    });
    banner->showOverlayForSeconds(1);
    ASSERT_FALSE(levels.empty());
    EXPECT_EQ(levels.front(), 1000);
}

TEST_F(StatusBarAlertTest, ButtonIsUnhiddenBeforeTheWindowIsRaised) {
    make();
    button().setHidden(true);
    std::vector<bool> hidden;
    const auto subscription = window->observe([&] { hidden.push_back(button().isHidden()); });
    banner->showOverlayForSeconds(1);
    ASSERT_FALSE(hidden.empty());
    EXPECT_FALSE(hidden.front());
}

TEST_F(StatusBarAlertTest, ButtonIsStyledBeforeItIsAdded) {
    make();
    std::vector<std::string> titles;
    const auto subscription = window->observe([&] {
        if (!window->subviews().empty() && button().titleLabel()->font().isBold)
            titles.push_back(button().title());
    });
    banner->showOverlayForSeconds(1);
    ASSERT_FALSE(titles.empty());
    EXPECT_EQ(titles.front(), "Something changed");
}

TEST_F(StatusBarAlertTest, WindowLevelIsTruncated) {
    for (const auto& [level, kept] : {std::pair(1.5, 1), std::pair(-1.5, -1), std::pair(999.9, 999)}) {
        window->setWindowLevel(level);
        make();
        EXPECT_EQ(banner->oldLevel(), kept);
        banner->showOverlayForSeconds(1);
        banner->hideOverlay();
        EXPECT_EQ(window->windowLevel(), static_cast<double>(kept));
    }
}

TEST_F(StatusBarAlertTest, WindowLevelIsClampedToTheIntegerRange) {
    using Limits = std::numeric_limits<std::int32_t>;
    for (const auto& [level, kept] : {std::pair(1e300, Limits::max()), std::pair(-1e300, Limits::min()),
                                      std::pair(std::nan(""), std::int32_t{0})}) {
        window->setWindowLevel(level);
        make();
        EXPECT_EQ(banner->oldLevel(), kept);
    }
}

TEST_F(StatusBarAlertTest, WindowLevelIsReadOnlyAtCreation) {
    window->setWindowLevel(3);
    make();
    window->setWindowLevel(8);
    banner->showOverlayForSeconds(1);
    EXPECT_EQ(banner->oldLevel(), 3);
    banner->hideOverlay();
    EXPECT_EQ(window->windowLevel(), 3);
}

TEST_F(StatusBarAlertTest, LevelAndWindowCanBeReplaced) {
    make();
    const auto other = std::make_shared<UIWindow>();
    banner->setApplicationWindow(other);
    banner->setOldLevel(7);
    banner->showOverlayForSeconds(1);
    EXPECT_EQ(other->windowLevel(), 1000);
    EXPECT_EQ(button().superview(), other);
    EXPECT_EQ(window->windowLevel(), 0);
    banner->hideOverlay();
    EXPECT_EQ(other->windowLevel(), 7);
}

TEST_F(StatusBarAlertTest, ButtonCanBeReplaced) {
    make();
    const auto other = std::make_shared<UIButton>();
    banner->setActionButton(other);
    banner->showOverlayForSeconds(1);
    EXPECT_EQ(other->title(), "Something changed");
    EXPECT_EQ(other->superview(), window);
}

TEST_F(StatusBarAlertTest, UsesTheKeyWindowOfItsCreation) {
    make();
    UIApplication::sharedApplication()->setKeyWindow(std::make_shared<UIWindow>());
    banner->showOverlayForSeconds(1);
    EXPECT_EQ(button().superview(), window);
}

TEST_F(StatusBarAlertTest, WithoutAKeyWindowItHasNoSuperview) {
    UIApplication::sharedApplication()->setKeyWindow(nullptr);
    make();
    EXPECT_EQ(banner->applicationWindow(), nullptr);
    EXPECT_EQ(banner->oldLevel(), 0);
    banner->showOverlayForSeconds(1);
    EXPECT_EQ(button().alpha(), 1);
    EXPECT_EQ(button().title(), "Something changed");
    EXPECT_EQ(button().superview(), nullptr);
    runFor(10);
    EXPECT_EQ(button().alpha(), 0);
    EXPECT_TRUE(button().isHidden());
}

TEST_F(StatusBarAlertTest, WithoutAMainScreenItsWidthIsZero) {
    UIApplication::sharedApplication()->setMainScreen(std::nullopt);
    make();
    EXPECT_EQ(button().frame(), (CGRect{{0, 0}, {0, 20}}));
}

TEST_F(StatusBarAlertTest, UpdateAfterLosingTheScreenMakesTheWidthZero) {
    make();
    UIApplication::sharedApplication()->setMainScreen(std::nullopt);
    banner->updateStatusBarFrame();
    EXPECT_EQ(button().frame(), (CGRect{{0, 0}, {0, 20}}));
}

TEST_F(StatusBarAlertTest, RotationGivesItTheNewScreenWidth) {
    make();
    UIApplication::sharedApplication()->setScreenSize({568, 320});
    EXPECT_EQ(button().frame(), (CGRect{{0, 0}, {568, 20}}));
    UIApplication::sharedApplication()->setScreenSize({320, 568});
    EXPECT_EQ(button().frame(), (CGRect{{0, 0}, {320, 20}}));
}

TEST_F(StatusBarAlertTest, EitherStatusBarNotificationUpdatesTheFrame) {
    make();
    double width = 100;
    for (const auto* name : {"UIApplicationDidChangeStatusBarOrientationNotification",
                             "UIApplicationWillChangeStatusBarFrameNotification"}) {
        UIApplication::sharedApplication()->setMainScreen(UIScreen({{3, 4}, {++width, 500}}));
        button().setFrame({{1, 2}, {3, 4}});
        device.notificationCenter().postNotification(name, std::make_shared<NSObject>());
        EXPECT_EQ(button().frame(), (CGRect{{0, 0}, {width, 20}})) << name;
    }
}

TEST_F(StatusBarAlertTest, TapSendsTheActionWithTheButtonAndDoesNotHide) {
    make(std::nullopt, "tapped:", target);
    banner->showOverlayForSeconds(5.5F);
    button().sendActionsForControlEvents(UIControlEventTouchUpInside);
    EXPECT_EQ(target->senders, (std::vector<std::shared_ptr<NSObject>>{banner->actionButton()}));
    EXPECT_EQ(button().alpha(), 1);
    EXPECT_EQ(button().superview(), window);
}

TEST_F(StatusBarAlertTest, OnlyATouchUpInsideIsATap) {
    make(std::nullopt, "tapped:", target);
    button().sendActionsForControlEvents(UIControlEventValueChanged);
    button().sendActionsForControlEvents(static_cast<UIControlEvents>(0xFFFFFFFFU & ~64U));
    EXPECT_TRUE(target->senders.empty());
    button().sendActionsForControlEvents(static_cast<UIControlEvents>(64));
    EXPECT_EQ(target->senders.size(), 1U);
}

TEST_F(StatusBarAlertTest, WithoutActionOrTargetATapDoesNothing) {
    make(std::nullopt, std::nullopt, target);
    button().sendActionsForControlEvents(UIControlEventTouchUpInside);
    make(std::nullopt, "tapped:", nullptr);
    button().sendActionsForControlEvents(UIControlEventTouchUpInside);
    EXPECT_TRUE(target->senders.empty());
}

TEST_F(StatusBarAlertTest, TargetAndActionSetLaterDoNotReachTheButton) {
    make();
    banner->setTarget(target);
    banner->setAction("tapped:");
    banner->showOverlayForSeconds(1);
    button().sendActionsForControlEvents(UIControlEventTouchUpInside);
    EXPECT_TRUE(target->senders.empty());
}

TEST_F(StatusBarAlertTest, KeepsItsTargetAlive) {
    make(std::nullopt, "tapped:", target);
    const std::weak_ptr<NSObject> watched = target;
    target = nullptr;
    EXPECT_FALSE(watched.expired());
    banner = nullptr;
    EXPECT_TRUE(watched.expired());
}

TEST_F(StatusBarAlertTest, DerivesFromTheRootClass) {
    make();
    EXPECT_EQ(banner->isa().name(), "SWStatusBarAlert");
    EXPECT_EQ(banner->isa().superclass(), &NSObject::classObject());
}

} // namespace
} // namespace prismo
