#include "platform/swatchkit/SWColorAlert.h"
#include "tests/support/MemoryWorld.h"

namespace prismo {
namespace {

constexpr UIColor start{1, 0, 0, 0.5};

enum class Alpha { shown, hidden };

struct SWColorAlertTest : MemoryWorld {
    std::shared_ptr<SWColorAlert> open(Alpha alpha = Alpha::hidden) {
        auto picker = SWColorAlert::colorAlertWithStartColor(start, alpha == Alpha::shown);
        picker->displayWithCompletion([this](const UIColor& color) { chosen.push_back(color); });
        return picker;
    }
    std::vector<UIColor> chosen;
};

TEST_F(SWColorAlertTest, IsPresentedUntilAcceptedOrCanceled) {
    EXPECT_EQ(topmostPresented<SWColorAlert>(), nullptr);
    const auto first = open();
    const auto second = open();
    EXPECT_EQ(topmostPresented<SWColorAlert>(), second);
    second->accept();
    EXPECT_EQ(topmostPresented<SWColorAlert>(), first);
    first->cancel();
    EXPECT_EQ(topmostPresented<SWColorAlert>(), nullptr);
}

TEST_F(SWColorAlertTest, StartsAtTheStartColor) {
    const auto picker = open();
    EXPECT_EQ(picker->startColor(), start);
    EXPECT_EQ(picker->color(), start);
    EXPECT_EQ(picker->hexText(), "#ff0000");
}

TEST_F(SWColorAlertTest, AcceptingReportsTheColorOnce) {
    const auto picker = open();
    picker->setColor({0, 1, 0, 1});
    picker->accept();
    picker->accept();
    EXPECT_EQ(chosen, (std::vector{UIColor{0, 1, 0, 1}}));
    EXPECT_EQ(picker->startColor(), start);
}

TEST_F(SWColorAlertTest, CancelingReportsNothing) {
    const auto picker = open();
    picker->cancel();
    picker->accept();
    EXPECT_TRUE(chosen.empty());
}

TEST_F(SWColorAlertTest, CompletionRunsAfterThePickerIsDismissed) {
    const auto picker = SWColorAlert::colorAlertWithStartColor(start, false);
    bool gone = false;
    picker->displayWithCompletion([&](const UIColor&) { gone = !topmostPresented<SWColorAlert>(); });
    picker->accept();
    EXPECT_TRUE(gone);
}

TEST_F(SWColorAlertTest, HiddenAlphaStaysUnchanged) {
    const auto picker = open(Alpha::hidden);
    EXPECT_FALSE(picker->showsAlpha());
    picker->setAlpha(0.1);
    EXPECT_EQ(picker->color().alpha, 0.5);
    EXPECT_TRUE(picker->setHexText("#00ff00:0.1"));
    EXPECT_EQ(picker->color(), (UIColor{0, 1, 0, 0.5}));
    picker->setHSB({0, 1, 1});
    EXPECT_EQ(picker->color().alpha, 0.5);
}

TEST_F(SWColorAlertTest, ShownAlphaIsClamped) {
    const auto picker = open(Alpha::shown);
    EXPECT_TRUE(picker->showsAlpha());
    picker->setAlpha(0.1);
    EXPECT_EQ(picker->color().alpha, 0.1);
    picker->setAlpha(3);
    EXPECT_EQ(picker->color().alpha, 1);
    picker->setAlpha(-3);
    EXPECT_EQ(picker->color().alpha, 0);
    EXPECT_TRUE(picker->setHexText("#00ff00:0.25"));
    EXPECT_EQ(picker->color(), (UIColor{0, 1, 0, 0.25}));
}

TEST_F(SWColorAlertTest, InvalidColorTextChangesNothing) {
    const auto picker = open();
    int changes = 0;
    const auto subscription = picker->observe([&] { ++changes; });
    EXPECT_FALSE(picker->setHexText("#12"));
    EXPECT_EQ(picker->color(), start);
    EXPECT_EQ(changes, 0);
}

TEST_F(SWColorAlertTest, GrayKeepsItsHue) {
    const auto picker = open();
    picker->setHSB({0.5, 0, 0.25});
    EXPECT_EQ(picker->hexText(), "#404040");
    EXPECT_EQ(picker->hsb().hue, 0.5);
    picker->setHSB({picker->hsb().hue, 1, 1});
    EXPECT_EQ(picker->hexText(), "#00ffff");
}

TEST_F(SWColorAlertTest, HSBIsClamped) {
    const auto picker = open();
    picker->setHSB({-1, 2, 2});
    EXPECT_EQ(picker->hexText(), "#ff0000");
    EXPECT_EQ(picker->hsb().hue, 0);
    EXPECT_EQ(picker->hsb().saturation, 1);
    EXPECT_EQ(picker->hsb().brightness, 1);
    picker->setHSB({2, -1, -1});
    EXPECT_EQ(picker->hsb().hue, 1);
    EXPECT_EQ(picker->hsb().saturation, 0);
    EXPECT_EQ(picker->hsb().brightness, 0);
}

TEST_F(SWColorAlertTest, HSBFollowsTheColor) {
    const auto picker = open();
    EXPECT_EQ(picker->hsb().saturation, 1);
    picker->setColor(UIColor::whiteColor());
    EXPECT_EQ(picker->hsb().saturation, 0);
    EXPECT_EQ(picker->hsb().brightness, 1);
}

TEST_F(SWColorAlertTest, ObserversAreNotifiedOfEveryChange) {
    const auto picker = open(Alpha::shown);
    int changes = 0;
    const auto subscription = picker->observe([&] { ++changes; });
    picker->setColor({0, 1, 0, 1});
    EXPECT_EQ(changes, 1);
    picker->setHSB({0, 0, 0});
    EXPECT_EQ(changes, 2);
    picker->setHexText("#123");
    EXPECT_EQ(changes, 3);
    picker->setAlpha(0.2);
    EXPECT_EQ(changes, 4);
}

} // namespace
} // namespace prismo
