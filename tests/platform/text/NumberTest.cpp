#include "platform/text/Number.h"

#include <array>
#include <gtest/gtest.h>

namespace prismo {
namespace {

TEST(Number, OnlyAWholeTextIsANumber) {
    EXPECT_EQ(numberFromText<int>("-12"), -12);
    EXPECT_EQ(numberFromText<double>("2.5"), 2.5);
    for (const auto* none : {"", " 1", "1 ", "+1", "1x", "x", "0x1", "2147483648"})
        EXPECT_EQ(numberFromText<int>(none), std::nullopt) << none;
    EXPECT_EQ(numberFromText<unsigned>("-1"), std::nullopt);
    EXPECT_EQ(numberFromText<double>("1e999"), std::nullopt);
}

TEST(Number, EveryByteIsTwoDigits) {
    EXPECT_EQ(hexText(std::array<std::uint8_t, 3>{0, 0x7f, 0xff}), "007fff");
    EXPECT_EQ(hexText(10), "0a");
    EXPECT_EQ(hexText(std::span<const std::uint8_t>()), "");
}

} // namespace
} // namespace prismo
