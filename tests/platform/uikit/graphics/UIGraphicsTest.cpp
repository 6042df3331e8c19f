#include "platform/uikit/graphics/UIGraphics.h"
#include "platform/uikit/UIApplication.h"

#include <gtest/gtest.h>

namespace prismo {
namespace {

TEST(UIGraphicsTest, NewContextIsATransparentImageOfItsSize) {
    UIGraphicsBeginImageContextWithOptions({20, 30}, UIGraphicsOpacity::transparent, 0);
    const auto image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (CGSize{20, 30}));
    EXPECT_TRUE(image->data().empty());
    EXPECT_EQ(image->opacity(), UIGraphicsOpacity::transparent);
}

TEST(UIGraphicsTest, ImageKeepsTheContextsScaleAndOpacity) {
    UIGraphicsBeginImageContextWithOptions({20, 30}, UIGraphicsOpacity::opaque, 3);
    const auto image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    EXPECT_EQ(image->scale(), 3);
    EXPECT_EQ(image->opacity(), UIGraphicsOpacity::opaque);
}

TEST(UIGraphicsTest, ScaleZeroMeansTheMainScreensScale) {
    const auto scale = [] {
        UIGraphicsBeginImageContextWithOptions({1, 1}, UIGraphicsOpacity::transparent, 0);
        const auto image = UIGraphicsGetImageFromCurrentImageContext();
        UIGraphicsEndImageContext();
        return image->scale();
    };
    UIApplication::restart();
    EXPECT_EQ(scale(), 2);
    UIApplication::sharedApplication()->setMainScreen(UIScreen({{0, 0}, {414, 736}}, 3));
    EXPECT_EQ(scale(), 3);
    UIApplication::sharedApplication()->setMainScreen(std::nullopt);
    EXPECT_EQ(scale(), 1);
}

TEST(UIGraphicsTest, WithoutAContextThereIsNoImage) {
    EXPECT_EQ(UIGraphicsGetImageFromCurrentImageContext(), nullptr);
}

TEST(UIGraphicsTest, InnermostContextIsCurrent) {
    UIGraphicsBeginImageContextWithOptions({1, 1}, UIGraphicsOpacity::transparent, 0);
    UIGraphicsBeginImageContextWithOptions({2, 2}, UIGraphicsOpacity::transparent, 0);
    EXPECT_EQ(UIGraphicsGetImageFromCurrentImageContext()->size(), (CGSize{2, 2}));
    UIGraphicsEndImageContext();
    EXPECT_EQ(UIGraphicsGetImageFromCurrentImageContext()->size(), (CGSize{1, 1}));
    UIGraphicsEndImageContext();
    EXPECT_EQ(UIGraphicsGetImageFromCurrentImageContext(), nullptr);
}

TEST(UIGraphicsTest, EndingWithoutAContextDoesNothing) {
    UIGraphicsEndImageContext();
    EXPECT_EQ(UIGraphicsGetImageFromCurrentImageContext(), nullptr);
}

} // namespace
} // namespace prismo
