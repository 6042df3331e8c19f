#include "platform/plist/PropertyListGuard.h"
#include "tests/platform/plist/MadeFiles.h"

namespace prismo {

namespace {

/// Almost as many as the limit allows.
constexpr std::size_t nodes = maximumPropertyListNodes - 500;
constexpr std::size_t half = maximumPropertyListNodes / 2 - 10;

const std::vector<MadeFile> costly{
    {"Nodes", [] { return underKey("<array>" + repeated("<dict/>", nodes) + "</array>"); }},
    {"Integers", [] { return underKey("<array>" + repeated("<integer>-1</integer>", nodes) + "</array>"); }},
    {"FarDates",
     [] {
         return underKey("<array>" + repeated("<date>4001-01-01T00:00:00Z</date>", nodes / nodesOfXmlDate) +
                         "</array>");
     }},
    {"Reals",
     [] {
         return underKey("<array>" + repeated("<real>1.7976931348623157e308</real>", nodes) + "</array>");
     }},
    {"Keys", [] { return plist(keys(half, [](std::size_t i) { return "key" + std::to_string(i); })); }},
    {"ManyDictionaries",
     [] {
         const auto one = keys(499, [](std::size_t i) { return "key" + std::to_string(i); });
         return underKey("<array>" + repeated(one, 19) + "</array>");
     }},
    {"LongKeysOfOneStart",
     [] {
         const std::string start(240, 'k');
         return underKey("<array>" +
                         repeated(keys(499, [&](std::size_t i) { return start + std::to_string(i); }), 19) +
                         "</array>");
     }},
    {"RepeatedKeysBelowTheTable",
     [] { return plist(keys(4'500, [](std::size_t i) { return "k" + std::to_string(i % 450); })); }},
    {"AsManyCollidingKeysAsPass", [] { return plist(keys(1'700, collidingKey)); }},
    {"References", [] { return underKey("<string>" + repeated("&amp;", 14'000) + "</string>"); }},
    {"CommentsInAText", [] { return underKey("<string>" + repeated("x<!---->", nodes) + "</string>"); }},
    {"SectionsInAText", [] { return underKey("<string>" + repeated("<![CDATA[x]]>", nodes) + "</string>"); }},
    {"CommentsBetween", [] { return plist(repeated("<!--x-->", nodes) + "<dict/>"); }},
    {"Data", [] { return underKey("<data>" + std::string(8'388'000, 'A') + "</data>"); }},
    {"Text", [] { return underKey("<string>" + std::string(8'388'000, 'x') + "</string>"); }},
    {"TextBeyondAscii",
     [] { return underKey("<string>" + repeated("\xF0\x9F\x98\x80", 2'090'000) + "</string>"); }},
    {"WhiteSpace", [] { return plist(std::string(8'388'000, ' ') + "<dict/>"); }},
    {"DeepLists",
     [] {
         return underKey("<array>" +
                         repeated(repeated("<array>", 250) + repeated("</array>", 250), nodes / 251) +
                         "</array>");
     }},
    {"DeepDictionaries",
     [] {
         return underKey("<array>" +
                         repeated(repeated("<dict><key>k</key>", 250) + "<true/>" + repeated("</dict>", 250),
                                  nodes / 502) +
                         "</array>");
     }},
    {"BinaryFarDates",
     [] {
         return binary({entry(2), "Qk", array(std::vector<std::size_t>(nodes / nodesOfFarBinaryDate, 3)),
                        std::string("\x33\x42\x2D\x00\x00\x00\x00\x00\x00", 9)});
     }},
    {"BinaryDates",
     [] {
         return binary({entry(2), "Qk", array(std::vector<std::size_t>(nodes, 3)),
                        std::string("\x33\x41\xC0\x00\x00\x00\x00\x00\x00", 9)});
     }},
    {"BinarySharing", [] { return sharedChain(14, 2); }},
    {"BinaryTexts",
     [] {
         return binary({entry(2), "Qk", array(std::vector<std::size_t>(nodes, 3)),
                        "\x5F\x10\x50" + std::string(80, 'x')});
     }},
};

class CostlyTest : public testing::TestWithParam<MadeFile> {};
INSTANTIATE_TEST_SUITE_P(Accepted, CostlyTest, testing::ValuesIn(costly), nameOf);

} // namespace

TEST_P(CostlyTest, IsReadInTime) {
    const auto bytes = GetParam().make();
    std::optional<Dictionary> dictionary;
    const auto taken = time([&] { dictionary = read(bytes); });
    EXPECT_TRUE(dictionary);
    EXPECT_LE(taken, allowed);
    RecordProperty("milliseconds", std::to_string(std::chrono::duration<double, std::milli>(taken).count()));
}

TEST(CostlyPropertyList, TenThousandKeysAreNotTooMany) {
    const auto dictionary =
        read(plist(keys(10'000, [](std::size_t i) { return "key" + std::to_string(i); })));
    ASSERT_TRUE(dictionary);
    EXPECT_EQ(dictionary->size(), 10'000U);
}

} // namespace prismo
