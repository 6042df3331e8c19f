#include "platform/applist/NameOrder.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace prismo {
namespace {

using Names = std::vector<std::string>;

Names sorted(Names names) {
    std::ranges::sort(names, namePrecedes);
    return names;
}

TEST(NameOrderTest, LettersCompareIgnoringCase) {
    EXPECT_EQ(sorted({"beta", "Alpha", "Gamma", "alpine"}), (Names{"Alpha", "alpine", "beta", "Gamma"}));
}

TEST(NameOrderTest, NumbersCompareByValue) {
    EXPECT_EQ(sorted({"App 10", "App 2", "App 1"}), (Names{"App 1", "App 2", "App 10"}));
    EXPECT_EQ(sorted({"9", "10", "100", "99"}), (Names{"9", "10", "99", "100"}));
}

TEST(NameOrderTest, TextAfterEqualNumbersDecides) {
    EXPECT_EQ(sorted({"a2b", "a2a", "a02c"}), (Names{"a2a", "a2b", "a02c"}));
}

TEST(NameOrderTest, NumbersCanHaveAnyLength) {
    EXPECT_TRUE(namePrecedes("99999999999999999999998", "99999999999999999999999"));
    EXPECT_TRUE(namePrecedes("99999999999999999999999", "100000000000000000000000"));
}

TEST(NameOrderTest, LeadingZerosAreIgnored) {
    EXPECT_TRUE(namePrecedes("App 007", "App 8"));
    EXPECT_TRUE(namePrecedes("App 000", "App 1"));
}

TEST(NameOrderTest, NamesThatDifferOnlyInZerosOrCaseHaveAFixedOrder) {
    for (const auto& [a, b] : {std::pair{"APP", "app"}, {"a 01", "a 1"}, {"0", "00"}})
        EXPECT_NE(namePrecedes(a, b), namePrecedes(b, a)) << a;
}

TEST(NameOrderTest, ShorterNameComesFirst) {
    EXPECT_TRUE(namePrecedes("App", "App 2"));
    EXPECT_TRUE(namePrecedes("", "a"));
    EXPECT_FALSE(namePrecedes("a", ""));
}

TEST(NameOrderTest, NoNamePrecedesItself) {
    for (const auto* name : {"", "a", "App 10", "007"})
        EXPECT_FALSE(namePrecedes(name, name));
}

TEST(NameOrderTest, LatinLettersSortWithTheirBaseLetters) {
    EXPECT_EQ(sorted({"Euro", "Étude", "Echo", "zoo", "Ångström", "apple", "Łódź", "lodz", "Mail"}),
              (Names{"Ångström", "apple", "Echo", "Étude", "Euro", "lodz", "Łódź", "Mail", "zoo"}));
    EXPECT_EQ(sorted({"y", "Ỹ", "z", "x"}), (Names{"x", "y", "Ỹ", "z"}));
    EXPECT_EQ(sorted({"Žena", "zebra", "Über", "uhr", "tag"}),
              (Names{"tag", "Über", "uhr", "zebra", "Žena"}));
}

TEST(NameOrderTest, EveryLatinLetterSortsWithinTheAlphabet) {
    const auto text = [](unsigned character) {
        std::string result;
        if (character >= 0x800) {
            result += static_cast<char>(0xE0 | character >> 12);
            result += static_cast<char>(0x80 | (character >> 6 & 0x3F));
        } else {
            result += static_cast<char>(0xC0 | character >> 6);
        }
        result += static_cast<char>(0x80 | (character & 0x3F));
        return result;
    };
    for (const auto& [first, end] : {std::pair(0xC0U, 0x180U), {0x1E00U, 0x1F00U}})
        for (auto character = first; character < end; ++character) {
            const bool isSign = character == 0xD7 || character == 0xF7;
            EXPECT_EQ(namePrecedes(text(character), "zz"), !isSign) << std::hex << character;
            EXPECT_TRUE(namePrecedes("Z", text(character)) || namePrecedes("A", text(character)));
        }
}

TEST(NameOrderTest, SeparateAccentBelongsToItsLetter) {
    EXPECT_EQ(sorted({"Euro", "E\u0301tude", "Echo"}), (Names{"Echo", "E\u0301tude", "Euro"}));
    EXPECT_TRUE(namePrecedes("e\u0301\u0302", "ea"));
}

TEST(NameOrderTest, NamesThatDifferOnlyInAccentsHaveAFixedOrder) {
    for (const auto& [a, b] : {std::pair{"Etude", "Étude"}, {"E\u0301", "\u00c9"}})
        EXPECT_NE(namePrecedes(a, b), namePrecedes(b, a)) << a;
}

TEST(NameOrderTest, OtherCharactersCompareByBytes) {
    EXPECT_EQ(sorted({"я", "α", "z", "_", " a", "×", "日"}), (Names{" a", "_", "z", "×", "α", "я", "日"}));
}

TEST(NameOrderTest, InvalidUtf8ComparesByBytes) {
    EXPECT_EQ(sorted({"\xff", "\xc3", "\xc3z", "\xe1\xb8", "a\xcc", "a"}),
              (Names{"a", "a\xcc", "\xc3", "\xc3z", "\xe1\xb8", "\xff"}));
}

} // namespace
} // namespace prismo
