#include "platform/plist/PropertyListReader.h"
#include "platform/plist/PropertyListWriter.h"
#include "tests/support/Directories.h"
#include "tests/support/Processes.h"

#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace prismo {

namespace {

std::optional<Dictionary> read(std::string_view bytes) {
    auto parsed = parseDictionary({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()}, "");
    return parsed ? std::optional(std::move(parsed).value()) : std::nullopt;
}

/// The value of an XML element.
Value element(const std::string& xml) {
    const auto dictionary = read("<plist version=\"1.0\"><dict><key>k</key>" + xml + "</dict></plist>");
    return dictionary ? valueForKey(*dictionary, "k") : Value();
}

std::string written(const Dictionary& dictionary) {
    const auto text = xmlText(dictionary, "");
    return text ? text.value() : "";
}

Value throughXml(const Value& value) {
    const auto dictionary = read(written({{"k", value}}));
    return dictionary ? valueForKey(*dictionary, "k") : Value();
}

/// The value after another program has read our XML and written it again.
Value through(const Value& value, const std::string& converter) {
    const TemporaryDirectory directory;
    const auto from = directory.path() / "from.plist";
    const auto to = directory.path() / "to.plist";
    std::ofstream(from) << written({{"k", value}});
    const auto result = shell("from=" + quoted(from) + " to=" + quoted(to) + "; " + converter);
    EXPECT_EQ(result.status, 0) << result.output;
    const auto dictionary = read(contents(to));
    return dictionary ? valueForKey(*dictionary, "k") : Value();
}

const std::string pythonTo = "/usr/bin/python3 -c 'import plistlib, sys; "
                             "value = plistlib.load(open(sys.argv[1], \"rb\")); "
                             "plistlib.dump(value, open(sys.argv[2], \"wb\"), fmt=plistlib.";
const std::string pythonBinary = pythonTo + "FMT_BINARY)' \"$from\" \"$to\"";
const std::string pythonXml = pythonTo + "FMT_XML)' \"$from\" \"$to\"";
const std::string plistutilBinary = "plistutil -i \"$from\" -f bin -o \"$to\"";

std::string utf8(char32_t c) {
    const auto last = [](char32_t bits) { return static_cast<char>(0x80 | (bits & 0x3F)); };
    if (c < 0x80) return {static_cast<char>(c)};
    if (c < 0x800) return {static_cast<char>(0xC0 | c >> 6), last(c)};
    if (c < 0x10000) return {static_cast<char>(0xE0 | c >> 12), last(c >> 6), last(c)};
    return {static_cast<char>(0xF0 | c >> 18), last(c >> 12), last(c >> 6), last(c)};
}

Date date(double seconds) { return Date{seconds}; }

/// Values of every kind, at every limit.
Dictionary everything() {
    constexpr double yearOne = -63'113'904'000;
    constexpr double year4001 = 63'113'904'000;
    Data bytes(1000);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::uint8_t>(i * 7);
    return {
        {"array", Array{1, "two", 3.5, Array{}, Dictionary{}, Array{Dictionary{{"deep", true}}}}},
        {"array empty", Array{}},
        {"bool no", false},
        {"bool yes", true},
        {"data", bytes},
        {"data empty", Data{}},
        {"data one", Data{0}},
        {"data two", Data{255, 254}},
        {"date", date(700'000'000)},
        {"date 0001", date(yearOne)},
        {"date 1900", date(-3'187'296'000)},
        {"date 4001", date(year4001)},
        {"date before the reference", date(-1)},
        {"date reference", date(0)},
        {"dictionary", Dictionary{{"a", 1}, {"b", Dictionary{{"", "empty key"}}}}},
        {"dictionary empty", Dictionary{}},
        {"integer", 42},
        {"integer 32 bits", std::int64_t{4'294'967'295}},
        {"integer below 32 bits", std::int64_t{-2'147'483'649}},
        {"integer highest", std::numeric_limits<std::int64_t>::max()},
        {"integer highest without a sign", std::numeric_limits<std::uint64_t>::max()},
        {"integer lowest", std::numeric_limits<std::int64_t>::min()},
        {"integer minus one", -1},
        {"integer without a sign", std::uint64_t{1} << 63},
        {"integer zero", 0},
        {"real", 0.1},
        {"real huge", std::numeric_limits<double>::max()},
        {"real infinite", std::numeric_limits<double>::infinity()},
        {"real minus infinite", -std::numeric_limits<double>::infinity()},
        {"real one", 1.0},
        {"real smallest", std::numeric_limits<double>::denorm_min()},
        {"real third", 1.0 / 3},
        {"text", "plain"},
        {"text XML", "<a href=\"x\">&amp; ]]> 'quoted'</a>"},
        {"text beyond the plane", "\U0001F600 \U00010000 \U0010FFFF"},
        {"text empty", ""},
        {"text other", "Grüße 你好 \u0085 \uFFFD"},
        {"text white", " \t\n  "},
        {"text with a line's other end", "a\r\nb\rc"},
        {"key <&> \" with é", "value"},
    };
}

} // namespace

TEST(PropertyList, EveryValueComesBackUnchanged) {
    for (const auto& [key, value] : everything())
        EXPECT_EQ(throughXml(value), value) << key;
}

TEST(PropertyList, WholeDictionaryComesBackUnchanged) {
    EXPECT_EQ(read(written(everything())), everything());
}

TEST(PropertyList, PythonReadsWhatIsWrittenAndWritesItAsBinary) {
    EXPECT_EQ(through(everything(), pythonBinary), Value(everything()));
}

TEST(PropertyList, PythonReadsWhatIsWrittenAndWritesItAsXml) {
    auto values = everything();
    values.erase("text with a line's other end"); // it writes a bare carriage return itself
    EXPECT_EQ(through(values, pythonXml), Value(values));
}

TEST(PropertyList, PlistutilReadsWhatIsWrittenAndWritesItAsBinary) {
    EXPECT_EQ(through(everything(), plistutilBinary), Value(everything()));
}

TEST(PropertyList, SignOfZeroAndNanStay) {
    for (const auto& converter : {pythonBinary, pythonXml, plistutilBinary}) {
        const auto zero = through(-0.0, converter);
        ASSERT_TRUE(zero.as<double>());
        EXPECT_TRUE(std::signbit(*zero.as<double>()));
        const auto none = through(std::nan(""), converter);
        ASSERT_TRUE(none.as<double>());
        EXPECT_TRUE(std::isnan(*none.as<double>()));
    }
}

TEST(PropertyList, LargeDataStays) {
    EXPECT_EQ(through(Data(2'000'000, 0xA5), pythonBinary), Value(Data(2'000'000, 0xA5)));
}

TEST(PropertyList, UidStays) {
    EXPECT_EQ(throughXml(Uid{70'000}), Value(Uid{70'000}));
    EXPECT_EQ(through(Dictionary{{"CF$UID", 7}}, plistutilBinary), Value(Dictionary{{"CF$UID", 7}}));
    const auto result = shell("/usr/bin/python3 -c 'import plistlib, sys; sys.stdout.buffer.write("
                              "plistlib.dumps({\"k\": plistlib.UID(300000)}, fmt=plistlib.FMT_BINARY))'");
    EXPECT_EQ(read(result.output), (Dictionary{{"k", Uid{300'000}}}));
}

TEST(PropertyList, PythonReadsEveryCharacter) {
    Dictionary texts;
    std::size_t refused = 0;
    for (char32_t c = 1; c < 0x110000; ++c) {
        // The first and last characters of each plane are special.
        if ((c & 0xFFFF) > 0xFF && (c & 0xFFFF) < 0xFFF0) continue;
        const auto text = "a" + utf8(c) + "b";
        if (written({{"k", text}}).empty() || written({{text, 1}}).empty())
            ++refused;
        else
            texts[text] = text;
    }
    EXPECT_EQ(refused, 28U + 2U); // of the first 31, only tab and the two line ends are allowed
    EXPECT_EQ(through(texts, pythonBinary), Value(texts));
}

TEST(PropertyList, CharactersThatXmlDoesNotHaveAreNotWritten) {
    for (const char* text : {"\x01", "\x08", "\x0B", "\x0C", "\x0E", "\x1B", "\x1F", "\uFFFE", "\uFFFF"})
        for (const auto& dictionary : {Dictionary{{"k", text}}, Dictionary{{text, 1}},
                                       Dictionary{{"k", Array{Dictionary{{text, 1}}}}}}) {
            const auto result = xmlText(dictionary, "/a/file");
            ASSERT_FALSE(result);
            EXPECT_EQ(result.problem(), (Problem{Problem::Kind::unwritable, "/a/file",
                                                 "text with a character that XML does not have"}));
        }
    EXPECT_EQ(throughXml("\t\n\r\x7F\u0080\uFFFD"), Value("\t\n\r\x7F\u0080\uFFFD"));
}

TEST(PropertyList, CharactersThatXmlDoesNotHaveAreStillRead) {
    EXPECT_EQ(element("<string>\x01\x1F</string>"), Value("\x01\x1F"));
}

TEST(PropertyList, BinaryDatesKeepTheirFractions) {
    const auto result = shell("/usr/bin/python3 -c 'import plistlib, datetime, sys; sys.stdout.buffer.write("
                              "plistlib.dumps({\"k\": datetime.datetime(2001, 1, 1, 0, 0, 1, 250000)}, "
                              "fmt=plistlib.FMT_BINARY))'");
    EXPECT_EQ(read(result.output), (Dictionary{{"k", Date{1.25}}}));
}

TEST(PropertyList, XmlDatesAreCutToWholeSeconds) {
    EXPECT_EQ(throughXml(Date{1.75}), Value(Date{1}));
    EXPECT_EQ(throughXml(Date{-0.25}), Value(Date{-1}));
}

TEST(PropertyList, KeysAreWrittenInByteOrderAndTheFileEndsWithItsLine) {
    EXPECT_EQ(
        written({{"b", 1}, {"B", true}, {"a", "x"}}),
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
        "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
        "<plist version=\"1.0\">\n<dict>\n\t<key>B</key>\n\t<true/>\n\t<key>a</key>\n\t<string>x</string>\n"
        "\t<key>b</key>\n\t<integer>1</integer>\n</dict>\n</plist>\n");
}

TEST(PropertyList, LastOfEqualKeysCounts) {
    EXPECT_EQ(read("<plist><dict><key>a</key><true/><key>a</key><false/></dict></plist>"),
              (Dictionary{{"a", false}}));
}

TEST(PropertyList, TextIsReadInEveryNotation) {
    EXPECT_EQ(element("<string>&lt;&amp;&gt;&quot;&apos;&#65;&#x1F600;</string>"),
              Value("<&>\"'A\U0001F600"));
    EXPECT_EQ(element("<string>a<![CDATA[<b>&]]>c<!-- not this -->d</string>"), Value("a<b>&cd"));
    EXPECT_EQ(element("<string/>"), Value(""));
}

TEST(PropertyList, NumbersThatTheLibraryMisreadsAreRefused) {
    EXPECT_EQ(element("<integer>0x1F</integer>"), Value(31));
    EXPECT_EQ(element("<integer>+5</integer>"), Value(5));
    for (const char* text : {"010", "12x", "--5", "", " -5", "99999999999999999999", "-9223372036854775809"})
        EXPECT_TRUE(element(std::string("<integer>") + text + "</integer>").isNothing()) << text;
    for (const char* text : {"", "abc", "1.5x", "+-1"})
        EXPECT_TRUE(element(std::string("<real>") + text + "</real>").isNothing()) << text;
}

TEST(PropertyList, DatesThatTheLibraryMisreadsAreRefused) {
    EXPECT_EQ(element("<date>2001-01-02T00:00:59Z</date>"), Value(Date{86'459}));
    EXPECT_EQ(element("<date>2020-02-29T23:59:59Z</date>"), Value(Date{604'713'599}));
    for (const char* text :
         {"", "xx", "12345-01-01T00:00:00Z", "2020-01-01", "2020-13-01T00:00:00Z", "2020-00-01T00:00:00Z",
          "2020-01-00T00:00:00Z", "2020-01-32T00:00:00Z", "2021-02-29T00:00:00Z", "0000-01-01T00:00:00Z",
          "2020-01-01T24:00:00Z", "2020-01-01T00:60:00Z", "2020-01-01T23:59:60Z", " 2020-01-01T00:00:00Z"})
        EXPECT_TRUE(element(std::string("<date>") + text + "</date>").isNothing()) << text;
}

TEST(PropertyList, DataThatTheLibraryMisreadsIsRefused) {
    for (const char* text : {"", " ", "AAAA", "AAA=", "AA==", "A A\nA =", "AAAAAA=="})
        EXPECT_TRUE(element(std::string("<data>") + text + "</data>").as<Data>()) << text;
    for (const char* text : {"!!!!", "A", "AA", "AAA", "AA=", "A===", "AAAAA", "AA==AA==", "=AAA", "AA=A",
                             "AAAA====", "====", "AAA=="})
        EXPECT_TRUE(element(std::string("<data>") + text + "</data>").isNothing()) << text;
}

TEST(PropertyList, WhiteSpaceMayStandAtTheEndOfATag) {
    EXPECT_EQ(read("<plist><dict ><key >k</key ><array\n><true /><false></false ><string >x</string\t>"
                   "<integer>5</integer ></array ></dict ></plist >"),
              (Dictionary{{"k", Array{true, false, "x", 5}}}));
    for (const char* text : {"< dict/>", "<dict></ dict>", "<dict/ >", "<dict><key/><true/></dict>"})
        EXPECT_FALSE(read(std::string("<plist>") + text + "</plist>")) << text;
}

TEST(PropertyList, ByteOrderMarkAndWhiteSpaceMayStandInFront) {
    EXPECT_TRUE(read("\xEF\xBB\xBF<plist><dict/></plist>"));
    EXPECT_TRUE(read(" \n<!-- c --><?xml version=\"1.0\"?>\n<plist><dict/></plist>\n"));
}

TEST(PropertyList, OtherContentIsNotADictionary) {
    for (const char* text :
         {"", " ", "x", "{ a = 1; }", "{\"a\": 1}", "<dict/>", "<plist/>", "<plist></plist>",
          "<plist><array/></plist>", "<plist><string>x</string></plist>", "<plist><dict/><dict/></plist>",
          "<plist><dict><key>a</key></dict></plist>", "<plist><dict><true/></dict></plist>",
          "<plist><dict></array></plist>", "<plist><dict/></plist>x", "<plist><dict/>", "<html></html>",
          "bplist00", "<plist><dict><key>a</key><nothing/></dict></plist>"})
        EXPECT_FALSE(read(text)) << text;
}

TEST(PropertyList, TextThatIsNotUtf8IsNeitherReadNorWritten) {
    EXPECT_TRUE(element("<string>\xFF\xFE</string>").isNothing());
    EXPECT_TRUE(element("<string>&#xD800;</string>").isNothing());
    EXPECT_TRUE(element("<string>a&#0;b</string>").isNothing());
    for (const std::string& text :
         {std::string("\xFF"), std::string("\xC0\x80"), std::string("\xED\xA0\x80"),
          std::string("\xF4\x90\x80\x80"), std::string("a\0b", 3), std::string("\xE4\xBD")})
        EXPECT_FALSE(xmlText({{"k", text}}, ""));
}

TEST(PropertyList, DatesThatXmlCannotHoldAreNotWritten) {
    for (const double seconds : {-63'113'904'001.0, 252'423'993'600.0, 1e300, std::nan(""), -HUGE_VAL})
        EXPECT_FALSE(xmlText({{"k", Date{seconds}}}, "")) << seconds;
    EXPECT_EQ(throughXml(Date{252'423'993'599.0}), Value(Date{252'423'993'599.0}));
}

TEST(PropertyList, ValueThatCannotBeReadAgainIsNotWritten) {
    Value nested = 1;
    for (int i = 0; i < 300; ++i)
        nested = Array{nested};
    EXPECT_FALSE(xmlText({{"k", nested}}, ""));
    EXPECT_FALSE(xmlText({{"k", std::string(10'000'000, 'x')}}, ""));
}

} // namespace prismo
