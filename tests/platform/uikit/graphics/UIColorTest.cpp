#include "platform/uikit/graphics/UIColor.h"

#include <gtest/gtest.h>

namespace prismo {
namespace {

void expectColor(const UIColor& color, const UIColor& expected) {
    EXPECT_NEAR(color.red, expected.red, 1e-9);
    EXPECT_NEAR(color.green, expected.green, 1e-9);
    EXPECT_NEAR(color.blue, expected.blue, 1e-9);
    EXPECT_NEAR(color.alpha, expected.alpha, 1e-9);
}

TEST(UIColorTest, PrimariesAreAtSixthsOfTheCircle) {
    const UIColor expected[]{{1, 0, 0, 1}, {1, 1, 0, 1}, {0, 1, 0, 1},
                             {0, 1, 1, 1}, {0, 0, 1, 1}, {1, 0, 1, 1}};
    for (int sixth = 0; sixth < 6; ++sixth)
        expectColor(UIColor::colorWithHue(sixth / 6.0, 1, 1, 1), expected[sixth]);
}

TEST(UIColorTest, FullCircleIsRedAgain) { expectColor(UIColor::colorWithHue(1, 1, 1, 1), {1, 0, 0, 1}); }

TEST(UIColorTest, SaturationAndBrightnessScale) {
    expectColor(UIColor::colorWithHue(1 / 12.0, 0.5, 0.8, 0.25), {0.8, 0.6, 0.4, 0.25});
}

TEST(UIColorTest, ComponentsOutsideTheRangeAreClamped) {
    expectColor(UIColor::colorWithHue(-3, 2, 7, 9), {1, 0, 0, 1});
    expectColor(UIColor::colorWithHue(0, -1, -1, -1), {0, 0, 0, 0});
}

TEST(UIColorTest, GrayHasHueZero) {
    const auto hsb = UIColor{0.4, 0.4, 0.4, 1}.hsb();
    EXPECT_EQ(hsb.hue, 0);
    EXPECT_EQ(hsb.saturation, 0);
    EXPECT_EQ(hsb.brightness, 0.4);
}

TEST(UIColorTest, EveryHueRoundTrips) {
    for (int step = 0; step < 360; ++step) {
        const double hue = step / 360.0;
        const auto hsb = UIColor::colorWithHue(hue, 0.7, 0.9, 1).hsb();
        EXPECT_NEAR(hsb.hue, hue, 1e-9);
        EXPECT_NEAR(hsb.saturation, 0.7, 1e-9);
        EXPECT_NEAR(hsb.brightness, 0.9, 1e-9);
    }
}

TEST(UIColorTest, BlackAndWhiteAreOpaque) {
    EXPECT_EQ(UIColor::blackColor(), (UIColor{0, 0, 0, 1}));
    EXPECT_EQ(UIColor::whiteColor(), (UIColor{1, 1, 1, 1}));
}

} // namespace
} // namespace prismo
