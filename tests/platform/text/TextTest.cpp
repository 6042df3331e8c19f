#include "platform/text/Text.h"

#include <gtest/gtest.h>

namespace prismo {
namespace {

TEST(Text, PlaceholdersTakeTheArgumentsInOrder) {
    EXPECT_EQ(formatted("%@ and %@.", {"a", "b"}), "a and b.");
}

TEST(Text, MissingArgumentShowsAsNull) { EXPECT_EQ(formatted("<%@>", {std::nullopt}), "<(null)>"); }

TEST(Text, PlaceholderInAnArgumentIsKept) { EXPECT_EQ(formatted("%@ %@", {"%@", "b"}), "%@ b"); }

TEST(Text, SurplusArgumentsAreIgnored) { EXPECT_EQ(formatted("%@", {"a", "b"}), "a"); }

TEST(Text, PlaceholderWithoutArgumentStays) { EXPECT_EQ(formatted("%@ %@", {"a"}), "a %@"); }

TEST(Text, LowercasingChangesOnlyAsciiLetters) {
    EXPECT_EQ(lowercased("Icon COLOR @[`{ \u00c4\u00e9 09"), "icon color @[`{ \u00c4\u00e9 09");
}

} // namespace
} // namespace prismo
