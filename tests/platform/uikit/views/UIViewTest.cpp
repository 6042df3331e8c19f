#include "platform/uikit/views/UIView.h"
#include "tests/support/MemoryWorld.h"

namespace prismo {
namespace {

struct UIViewTest : MemoryWorld {
    static void animate(double seconds, const std::function<void()>& animations) {
        UIView::animateWithDuration(Seconds(seconds), animations, [](bool /*finished*/) {});
    }

    std::shared_ptr<UIView> view = std::make_shared<UIView>();
    std::shared_ptr<UIView> first = std::make_shared<UIView>();
    std::shared_ptr<UIView> second = std::make_shared<UIView>();
};

TEST_F(UIViewTest, NewViewIsOpaqueAndVisible) {
    EXPECT_EQ(view->frame(), CGRect());
    EXPECT_EQ(view->alpha(), 1);
    EXPECT_FALSE(view->isHidden());
    EXPECT_EQ(view->backgroundColor(), std::nullopt);
    EXPECT_EQ(view->tintColor(), std::nullopt);
    EXPECT_EQ(view->autoresizingMask(), 0U);
    EXPECT_TRUE(view->autoresizesSubviews());
    EXPECT_EQ(view->superview(), nullptr);
    EXPECT_EQ(UIView(CGRect{{1, 2}, {3, 4}}).frame(), (CGRect{{1, 2}, {3, 4}}));
}

TEST_F(UIViewTest, EveryStateChangeIsReportedOnce) {
    int changes = 0;
    const auto subscription = view->observe([&] { ++changes; });
    const auto setAll = [&] {
        view->setFrame({{1, 2}, {3, 4}});
        view->setAlpha(0.5);
        view->setHidden(true);
        view->setBackgroundColor(UIColor::blackColor());
        view->setTintColor(UIColor::whiteColor());
        view->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
        view->setAutoresizesSubviews(false);
    };
    setAll();
    EXPECT_EQ(changes, 7);
    setAll();
    EXPECT_EQ(changes, 7);
    EXPECT_EQ(view->frame(), (CGRect{{1, 2}, {3, 4}}));
    EXPECT_EQ(view->alpha(), 0.5);
    EXPECT_TRUE(view->isHidden());
    EXPECT_EQ(view->backgroundColor(), UIColor::blackColor());
    EXPECT_EQ(view->tintColor(), UIColor::whiteColor());
    EXPECT_EQ(view->autoresizingMask(), 2U);
    EXPECT_FALSE(view->autoresizesSubviews());
}

TEST_F(UIViewTest, SubviewsAreOrderedBackToFront) {
    view->addSubview(first);
    view->addSubview(second);
    EXPECT_EQ(view->subviews(), (std::vector{first, second}));
    EXPECT_EQ(first->superview(), view);
    view->bringSubviewToFront(first);
    EXPECT_EQ(view->subviews(), (std::vector{second, first}));
}

TEST_F(UIViewTest, OtherViewIsNotBroughtToFront) {
    view->addSubview(first);
    view->bringSubviewToFront(second);
    EXPECT_EQ(view->subviews(), (std::vector{first}));
}

TEST_F(UIViewTest, SubviewAddedAgainMovesToTheFront) {
    view->addSubview(first);
    view->addSubview(second);
    view->addSubview(first);
    EXPECT_EQ(view->subviews(), (std::vector{second, first}));
}

TEST_F(UIViewTest, ViewHasOneSuperview) {
    const auto other = std::make_shared<UIView>();
    view->addSubview(first);
    other->addSubview(first);
    EXPECT_TRUE(view->subviews().empty());
    EXPECT_EQ(first->superview(), other);
}

TEST_F(UIViewTest, RemovedViewHasNoSuperview) {
    view->addSubview(first);
    first->removeFromSuperview();
    EXPECT_TRUE(view->subviews().empty());
    EXPECT_EQ(first->superview(), nullptr);
    first->removeFromSuperview();
}

TEST_F(UIViewTest, SuperviewKeepsItsSubviewsAliveButNotViceVersa) {
    view->addSubview(first);
    const std::weak_ptr<UIView> child = first;
    first = nullptr;
    EXPECT_FALSE(child.expired());
    const auto kept = child.lock();
    view = nullptr;
    EXPECT_EQ(kept->superview(), nullptr);
}

TEST_F(UIViewTest, HierarchyChangesNotifyBothViews) {
    int parentChanges = 0;
    int childChanges = 0;
    const auto ofParent = view->observe([&] { ++parentChanges; });
    const auto ofChild = first->observe([&] { ++childChanges; });
    view->addSubview(first);
    EXPECT_EQ(parentChanges, 1);
    EXPECT_EQ(childChanges, 1);
    first->removeFromSuperview();
    EXPECT_EQ(parentChanges, 2);
    EXPECT_EQ(childChanges, 2);
}

TEST_F(UIViewTest, AnimatedAlphaChangesAtOnceAndIsDrawnOverTheDuration) {
    animate(0.5, [&] { view->setAlpha(0); });
    EXPECT_EQ(view->alpha(), 0);
    EXPECT_EQ(view->presentationAlpha(), 1);
    runFor(0.25);
    EXPECT_DOUBLE_EQ(view->presentationAlpha(), 0.5);
    runFor(0.25);
    EXPECT_EQ(view->presentationAlpha(), 0);
    EXPECT_EQ(view->animationEnd(), std::chrono::milliseconds(500));
}

TEST_F(UIViewTest, CompletionRunsWhenTheAnimationEnds) {
    std::chrono::nanoseconds end{};
    bool finished = false;
    UIView::animateWithDuration(
        Seconds(0.3), [] {},
        [&](bool done) {
            finished = done;
            end = now();
        });
    runFor(0.299);
    EXPECT_FALSE(finished);
    runFor(1);
    EXPECT_TRUE(finished);
    EXPECT_EQ(end, std::chrono::milliseconds(300));
}

TEST_F(UIViewTest, SecondAnimationStartsAtTheDrawnAlphaOfTheFirst) {
    view->setAlpha(0);
    animate(0.4, [&] { view->setAlpha(1); });
    runFor(0.1);
    animate(0.4, [&] { view->setAlpha(0); });
    EXPECT_DOUBLE_EQ(view->presentationAlpha(), 0.25);
    runFor(0.2);
    EXPECT_DOUBLE_EQ(view->presentationAlpha(), 0.125);
}

TEST_F(UIViewTest, PlainSetterEndsTheAnimation) {
    animate(1, [&] { view->setAlpha(0); });
    view->setAlpha(0.75);
    EXPECT_EQ(view->presentationAlpha(), 0.75);
}

TEST_F(UIViewTest, NestedAnimationHasItsOwnDuration) {
    animate(1, [&] {
        animate(0.5, [&] { first->setAlpha(0); });
        second->setAlpha(0);
    });
    EXPECT_EQ(first->animationEnd(), std::chrono::milliseconds(500));
    EXPECT_EQ(second->animationEnd(), std::chrono::milliseconds(1000));
    view->setAlpha(0);
    EXPECT_EQ(view->presentationAlpha(), 0) << "the animation still applies after its block";
}

TEST_F(UIViewTest, AutoresizingHasThePlatformsValues) {
    EXPECT_EQ(UIViewAutoresizingFlexibleWidth, 2U);
    EXPECT_EQ(UIViewAutoresizingFlexibleTopMargin, 8U);
    EXPECT_EQ(UIViewAutoresizingFlexibleHeight, 16U);
}

} // namespace
} // namespace prismo
