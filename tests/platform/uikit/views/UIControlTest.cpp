#include "platform/uikit/views/UIButton.h"
#include "tests/platform/uikit/Recorder.h"

#include <gtest/gtest.h>

namespace prismo {
namespace {

struct UIControlTest : testing::Test {
    std::shared_ptr<UIButton> button = std::make_shared<UIButton>(CGRect{{1, 2}, {3, 4}});
    std::shared_ptr<Recorder> target = std::make_shared<Recorder>();
};

TEST_F(UIControlTest, EventsHaveThePlatformsValues) {
    EXPECT_EQ(UIControlEventTouchUpInside, 64U);
    EXPECT_EQ(UIControlEventValueChanged, 4096U);
}

TEST_F(UIControlTest, ActionIsSentWithTheControlAsSender) {
    button->addTarget(target, "first:", UIControlEventTouchUpInside);
    button->sendActionsForControlEvents(UIControlEventTouchUpInside);
    EXPECT_EQ(target->received, (std::vector<Recorder::Received>{{"first", button}}));
}

TEST_F(UIControlTest, OtherEventsSendNothing) {
    button->addTarget(target, "first:", UIControlEventTouchUpInside);
    button->sendActionsForControlEvents(UIControlEventValueChanged);
    EXPECT_TRUE(target->received.empty());
}

TEST_F(UIControlTest, TargetCanObserveSeveralEvents) {
    const auto both = static_cast<UIControlEvents>(UIControlEventTouchUpInside | UIControlEventValueChanged);
    button->addTarget(target, "first:", both);
    button->sendActionsForControlEvents(UIControlEventTouchUpInside);
    button->sendActionsForControlEvents(UIControlEventValueChanged);
    EXPECT_EQ(target->received.size(), 2U);
}

TEST_F(UIControlTest, TargetsAreNotifiedInTheOrderAdded) {
    button->addTarget(target, "second:", UIControlEventTouchUpInside);
    button->addTarget(target, "first:", UIControlEventTouchUpInside);
    button->sendActionsForControlEvents(UIControlEventTouchUpInside);
    EXPECT_EQ(target->received, (std::vector<Recorder::Received>{{"second", button}, {"first", button}}));
}

TEST_F(UIControlTest, TargetIsNotKeptAlive) {
    button->addTarget(target, "first:", UIControlEventTouchUpInside);
    const std::weak_ptr<Recorder> watched = target;
    target = nullptr;
    EXPECT_TRUE(watched.expired());
    button->sendActionsForControlEvents(UIControlEventTouchUpInside);
}

TEST_F(UIControlTest, TargetAddedByAnActionReceivesOnlyLaterEvents) {
    button->addTarget(target, "first:", UIControlEventTouchUpInside);
    button->addTarget(target, "first:", UIControlEventTouchUpInside);
    target->onMessage = [this] {
        target->onMessage = nullptr;
        button->addTarget(target, "second:", UIControlEventTouchUpInside);
    };
    button->sendActionsForControlEvents(UIControlEventTouchUpInside);
    EXPECT_EQ(target->received, (std::vector<Recorder::Received>{{"first", button}, {"first", button}}));
    button->sendActionsForControlEvents(UIControlEventTouchUpInside);
    EXPECT_EQ(target->received.size(), 5U);
}

TEST_F(UIControlTest, ButtonHasItsFrame) { EXPECT_EQ(button->frame(), (CGRect{{1, 2}, {3, 4}})); }

TEST_F(UIControlTest, ButtonTitleIsItsLabelsText) {
    int changes = 0;
    const auto subscription = button->observe([&] { ++changes; });
    button->setTitle("Tap");
    EXPECT_EQ(button->title(), "Tap");
    EXPECT_EQ(button->titleLabel()->text(), "Tap");
    EXPECT_EQ(changes, 1);
}

TEST_F(UIControlTest, ButtonTitleColorIsTheSystemsUntilSet) {
    EXPECT_EQ(button->titleColor(), std::nullopt);
    int changes = 0;
    const auto subscription = button->observe([&] { ++changes; });
    button->setTitleColor(UIColor{1, 0, 0, 1});
    button->setTitleColor(UIColor{1, 0, 0, 1});
    EXPECT_EQ(button->titleColor(), (UIColor{1, 0, 0, 1}));
    EXPECT_EQ(changes, 1);
}

TEST_F(UIControlTest, FontsAreSystemFonts) {
    EXPECT_EQ(button->titleLabel()->font(), (UIFont{.pointSize = 17, .isBold = false}));
    EXPECT_EQ(UIFont::systemFontOfSize(20), (UIFont{.pointSize = 20, .isBold = false}));
    EXPECT_EQ(UIFont::boldSystemFontOfSize(12), (UIFont{.pointSize = 12, .isBold = true}));
}

} // namespace
} // namespace prismo
