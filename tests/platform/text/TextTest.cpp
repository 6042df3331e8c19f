#include "platform/text/Text.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace prismo {
namespace {

TEST(Text, PlaceholdersTakeTheArgumentsInOrder) {
    EXPECT_EQ(formatted("%@ and %@.", {"a", "b"}), "a and b.");
}

TEST(Text, AbsentArgumentShowsAsNull) { EXPECT_EQ(formatted("<%@>", {std::nullopt}), "<(null)>"); }

TEST(Text, PlaceholderInAnArgumentIsText) { EXPECT_EQ(formatted("%@ %@", {"%@", "b"}), "%@ b"); }

TEST(Text, SurplusArgumentsAreIgnored) { EXPECT_EQ(formatted("%@", {"a", "b"}), "a"); }

TEST(Text, PlaceholderWithoutArgumentStays) { EXPECT_EQ(formatted("%@ %@", {"a"}), "a %@"); }

TEST(Text, BytesAreTwoDigitsEach) {
    EXPECT_EQ(hexText(std::array<std::uint8_t, 3>{0, 0x7f, 0xff}), "007fff");
    EXPECT_EQ(hexText(10), "0a");
    EXPECT_EQ(hexText(std::span<const std::uint8_t>()), "");
}

TEST(Text, NumberIsAllOfTheTextOrNothing) {
    EXPECT_EQ(numberFromText<int>("-12"), -12);
    EXPECT_EQ(numberFromText<double>("2.5"), 2.5);
    for (const auto* none : {"", " 1", "1 ", "+1", "1x", "x", "0x1", "2147483648"})
        EXPECT_EQ(numberFromText<int>(none), std::nullopt) << none;
    EXPECT_EQ(numberFromText<unsigned>("-1"), std::nullopt);
    EXPECT_EQ(numberFromText<double>("1e999"), std::nullopt);
}

TEST(Text, LinksKeepUnreservedBytesOnly) {
    EXPECT_EQ(percentEncoded("Az09-._~"), "Az09-._~");
    EXPECT_EQ(percentEncoded(" +!*'()/ü\n"), "%20%2B%21%2A%27%28%29%2F%C3%BC%0A");
}

TEST(Text, LowercasingLeavesEverythingButAsciiLetters) {
    EXPECT_EQ(lowercased("Icon COLOR @[`{ \u00c4\u00e9 09"), "icon color @[`{ \u00c4\u00e9 09");
}

TEST(Text, DateIsCutToTheSecondBeforeIt) {
    EXPECT_EQ(dateText({0}), "2001-01-01T00:00:00Z");
    EXPECT_EQ(dateText({59.9}), "2001-01-01T00:00:59Z");
    EXPECT_EQ(dateText({-0.1}), "2000-12-31T23:59:59Z");
}

TEST(Text, DateHasATextFromTheYear1To9999) {
    constexpr double first = -63'113'904'000;
    constexpr double last = 252'423'993'599;
    EXPECT_EQ(dateText({first}), "0001-01-01T00:00:00Z");
    EXPECT_EQ(dateText({last + 0.5}), "9999-12-31T23:59:59Z");
    for (const double none : {first - 1, last + 1, std::nan(""), std::numeric_limits<double>::infinity()})
        EXPECT_EQ(dateText({none}), "") << none;
}

} // namespace
} // namespace prismo
