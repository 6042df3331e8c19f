#include "platform/swatchkit/ColorText.h"

#include "platform/text/Number.h"

#include <clocale>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace prismo {
namespace {

using namespace std::string_view_literals;

constexpr UIColor orange{0xDE / 255.0, 0x30 / 255.0, 0x27 / 255.0, 1};

UIColor translucent(double alpha) {
    auto color = orange;
    color.alpha = alpha;
    return color;
}

TEST(ColorTextTest, SixDigitsAreThreeBytes) {
    EXPECT_EQ(colorFromText("#de3027"), orange);
    EXPECT_EQ(colorFromText("de3027"), orange);
}

TEST(ColorTextTest, DigitsAreReadInEitherCase) {
    EXPECT_EQ(colorFromText("#DE3027"), orange);
    EXPECT_EQ(colorFromText("dE3027"), orange);
    EXPECT_EQ(colorFromText("#FFFFFF"), UIColor::whiteColor());
}

TEST(ColorTextTest, SingleDigitCountsTwice) {
    EXPECT_EQ(colorFromText("#fff"), UIColor::whiteColor());
    EXPECT_EQ(colorFromText("000"), UIColor::blackColor());
    EXPECT_EQ(colorFromText("#18f"), colorFromText("#1188ff"));
    EXPECT_EQ(colorFromText("18F:0.5"), colorFromText("#1188ff:0.5"));
}

TEST(ColorTextTest, AlphaFollowsAColon) {
    EXPECT_EQ(colorFromText("#de3027:1.000000"), orange);
    EXPECT_EQ(colorFromText("#de3027:0.500000"), translucent(0.5));
    EXPECT_EQ(colorFromText("de3027:0"), translucent(0));
    EXPECT_EQ(colorFromText("de3027:1"), orange);
    EXPECT_EQ(colorFromText("de3027:.25"), translucent(0.25));
    EXPECT_EQ(colorFromText("de3027:0."), translucent(0));
}

TEST(ColorTextTest, DefaultAlphaIsOpaque) { EXPECT_EQ(colorFromText("#123")->alpha, 1); }

TEST(ColorTextTest, WrongNumberOfDigitsIsRejected) {
    for (const auto* text : {"", "#", "1", "#12", "1234", "#12345", "1234567", "#12345678"})
        EXPECT_EQ(colorFromText(text), std::nullopt) << text;
}

TEST(ColorTextTest, NonHexadecimalDigitsAreRejected) {
    for (const auto* text : {"#de302g", "#g03027", "red", "#-e3027", "-e3027", "+de302", "#+e3027", "0xde30",
                             "0x1", "#0x123", "##de302", "##123", "de3027#", "de-027", "12.", "inf", "nan"})
        EXPECT_EQ(colorFromText(text), std::nullopt) << text;
}

TEST(ColorTextTest, SpacesAreRejected) {
    for (const auto* text : {" #de3027", "#de3027 ", "# de302", " de302", "de302 ", "# 12", "12 ", "de 027",
                             "\tde302", "#de3027\n", "#de3027 :1", "#de3027: 1", "#de3027:1 "})
        EXPECT_EQ(colorFromText(text), std::nullopt) << text;
}

TEST(ColorTextTest, AlphaOutOfRangeIsRejected) {
    for (const auto* text : {"#de3027:1.000001", "#de3027:2", "#de3027:-0.1", "#de3027:-1", "#de3027:-0"})
        EXPECT_EQ(colorFromText(text), std::nullopt) << text;
}

TEST(ColorTextTest, AlphaThatIsNotAPlainNumberIsRejected) {
    for (const auto* text :
         {"#de3027:", "#de3027:x", "#de3027:+1", "#de3027:inf", "#de3027:nan", "#de3027:-nan", "#de3027:0x1",
          "#de3027:1e0", "#de3027:1e-1", "#de3027:0,5", "#de3027:.", "#de3027:1.0x", "#de3027:1:1",
          "#de3027::1", "#de3027:1:", ":1", ":", "#:1"})
        EXPECT_EQ(colorFromText(text), std::nullopt) << text;
}

TEST(ColorTextTest, NULIsRejected) {
    EXPECT_EQ(colorFromText("#de302\0"sv), std::nullopt);
    EXPECT_EQ(colorFromText("#de3027\0"sv), std::nullopt);
    EXPECT_EQ(colorFromText("#de3027:1\0"sv), std::nullopt);
}

TEST(ColorTextTest, ReadingStaysWithinTheText) {
    const auto longer = "#de3027:0.55"sv;
    EXPECT_EQ(colorFromText(longer.substr(0, 7)), orange);
    EXPECT_EQ(colorFromText(longer.substr(0, 11)), translucent(0.5));
    EXPECT_EQ(colorFromText(longer.substr(0, 8)), std::nullopt);
}

TEST(ColorTextTest, InvalidColorGivesTheFallback) {
    EXPECT_EQ(SWKParseColorString("", "#de3027"), orange);
    EXPECT_EQ(SWKParseColorString("junk", "#de3027:0.5"), translucent(0.5));
}

TEST(ColorTextTest, ColorTakesPrecedenceOverTheFallback) {
    EXPECT_EQ(SWKParseColorString("#000", "#de3027"), UIColor::blackColor());
}

TEST(ColorTextTest, WithoutAnyValidColorTheResultIsWhite) {
    EXPECT_EQ(SWKParseColorString("", ""), UIColor::whiteColor());
    EXPECT_EQ(SWKParseColorString("x", "y"), UIColor::whiteColor());
}

TEST(ColorTextTest, HexTextIsLowercaseWithoutAlpha) {
    EXPECT_EQ(hexFromColor(translucent(0.25)), "#de3027");
    EXPECT_EQ(hexFromColor({0, 0.5, 1, 1}), "#0080ff");
}

TEST(ColorTextTest, ComponentsAreRoundedToTheNearestByte) {
    EXPECT_EQ(hexFromColor({0.4 / 255, 0.6 / 255, 254.6 / 255, 1}), "#0001ff");
}

TEST(ColorTextTest, ComponentsAreClamped) {
    constexpr auto infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(hexFromColor({-0.5, 1.5, 1e300, 1}), "#00ffff");
    EXPECT_EQ(hexFromColor({-infinity, infinity, std::nan(""), 1}), "#00ff00");
}

TEST(ColorTextTest, EveryByteRoundTripsThroughText) {
    for (int byte = 0; byte < 256; ++byte) {
        const double component = byte / 255.0;
        for (const UIColor color : {UIColor{component, 0, 1, 1}, {1, component, 0, 1}, {0, 1, component, 1}})
            EXPECT_EQ(colorFromText(hexFromColor(color)), color) << byte;
    }
}

TEST(ColorTextTest, EveryByteFormatsAsItsHexDigits) {
    for (unsigned byte = 0; byte < 256; ++byte) {
        const auto text = hexFromColor({byte / 255.0, byte / 255.0, byte / 255.0, 1});
        EXPECT_EQ(text.substr(1, 2), text.substr(3, 2));
        EXPECT_EQ(std::stoul(text.substr(1, 2), nullptr, 16), byte);
    }
}

TEST(ColorTextTest, StoredFormIsReadInAnyLocale) {
    const std::string former = std::setlocale(LC_NUMERIC, nullptr);
    for (const auto* commaLocale : {"de_DE.UTF-8", "fr_FR.UTF-8", "C.UTF-8"})
        if (std::setlocale(LC_NUMERIC, commaLocale)) break;
    EXPECT_EQ(colorFromText("#de3027:" + decimalText(0.5)), translucent(0.5));
    std::setlocale(LC_NUMERIC, former.c_str());
}

} // namespace
} // namespace prismo
