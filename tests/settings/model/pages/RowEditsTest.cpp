#include "settings/model/pages/RowEdits.h"

#include <gtest/gtest.h>
#include <string>

namespace prismo::settings {
namespace {

/// A row for each letter, which is its identifier.
std::vector<Row> rows(const std::string& letters) {
    std::vector<Row> result;
    for (const char letter : letters)
        result.emplace_back().identifier = QChar(letter);
    return result;
}

/// Applies the edits to `before`, one after the other.
std::string edited(const std::string& before, const std::string& after) {
    std::string result = before;
    for (const auto& edit : rowEdits(rows(before), rows(after)))
        if (edit.kind == RowEdit::Kind::remove)
            result.erase(edit.at, edit.count);
        else
            result.insert(edit.at, after.substr(edit.from, edit.count));
    return result;
}

TEST(RowEditsTest, EditsTurnOneListIntoTheOther) {
    for (const auto* before : {"", "a", "abc", "hshlcf", "aaaa"})
        for (const auto* after : {"", "a", "cba", "hshhlcff", "aa", "xaaay"})
            EXPECT_EQ(edited(before, after), after) << before;
}

TEST(RowEditsTest, EqualListsNeedNoEdits) { EXPECT_TRUE(rowEdits(rows("abcabc"), rows("abcabc")).empty()); }

TEST(RowEditsTest, AdjacentInsertionsAreOneEdit) {
    const auto edits = rowEdits(rows("abz"), rows("abcdez"));
    ASSERT_EQ(edits.size(), 1U);
    EXPECT_EQ(edits[0].at, 2U);
    EXPECT_EQ(edits[0].from, 2U);
    EXPECT_EQ(edits[0].count, 3U);
}

TEST(RowEditsTest, KindAndIdentifierIdentifyARow) {
    const auto before = rows("s");
    auto after = before;
    after[0].title = "another title";
    EXPECT_TRUE(rowEdits(before, after).empty());
    after[0].kind = RowKind::Switch;
    EXPECT_EQ(rowEdits(before, after).size(), 2U);
    after = rows("t");
    EXPECT_EQ(rowEdits(before, after).size(), 2U);
}

} // namespace
} // namespace prismo::settings
