#include "platform/uikit/views/UIView.h"
#include "tests/support/MemoryWorld.h"

namespace prismo {
namespace {

using namespace std::chrono_literals;

struct UIViewAnimationTest : MemoryWorld {
    void fadeOut(std::chrono::nanoseconds duration) {
        UIView::animateWithDuration(
            duration, [&] { view->setAlpha(0); },
            [this](bool isFinished) {
                completed.push_back(now());
                finished.push_back(isFinished);
            });
    }

    std::shared_ptr<UIView> view = std::make_shared<UIView>();
    std::vector<std::chrono::nanoseconds> completed;
    std::vector<bool> finished;
};

TEST_F(UIViewAnimationTest, EndsExactlyToTheNanosecond) {
    fadeOut(1s);
    device.runLoop().run(1s - 1ns);
    EXPECT_GT(view->presentationAlpha(), 0);
    EXPECT_TRUE(completed.empty());
    device.runLoop().run(1ns);
    EXPECT_EQ(view->presentationAlpha(), 0);
    EXPECT_EQ(completed, (std::vector<std::chrono::nanoseconds>{1s}));
}

TEST_F(UIViewAnimationTest, CompletionWithoutADurationWaitsForTheLoop) {
    fadeOut(0s);
    EXPECT_EQ(view->presentationAlpha(), 0);
    EXPECT_TRUE(completed.empty());
    device.runLoop().run(0s);
    EXPECT_EQ(completed.size(), 1U);
}

TEST_F(UIViewAnimationTest, AnimationThatRunsToItsEndIsFinished) {
    fadeOut(1s);
    device.runLoop().run(1s);
    view->setAlpha(1);
    EXPECT_EQ(finished, std::vector{true});
}

TEST_F(UIViewAnimationTest, AnimationCutShortByAnotherValueIsUnfinished) {
    fadeOut(1s);
    device.runLoop().run(0.5s);
    view->setAlpha(1);
    device.runLoop().run(1s);
    EXPECT_EQ(completed, (std::vector<std::chrono::nanoseconds>{1s}));
    EXPECT_EQ(finished, std::vector{false});
}

TEST_F(UIViewAnimationTest, AnimationCutShortByAnotherAnimationIsUnfinished) {
    fadeOut(1s);
    device.runLoop().run(0.5s);
    UIView::animateWithDuration(
        1s, [&] { view->setAlpha(1); }, [this](bool isFinished) { finished.push_back(isFinished); });
    device.runLoop().run(2s);
    EXPECT_EQ(finished, (std::vector{false, true}));
}

TEST_F(UIViewAnimationTest, ObserversAreNotifiedOnlyOfTheNewValue) {
    int changes = 0;
    const auto subscription = view->observe([&] { ++changes; });
    fadeOut(1s);
    device.runLoop().run(2s);
    EXPECT_EQ(changes, 1);
}

} // namespace
} // namespace prismo
