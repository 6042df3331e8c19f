#include "platform/plist/PropertyListGuard.h"
#include "tests/platform/plist/MadeFiles.h"

namespace prismo {

namespace {

constexpr std::size_t million = 1'000'000;
constexpr std::size_t half = maximumPropertyListNodes / 2 - 10;

/// A maker of a file with these objects. The file is made only when it is needed.
std::function<std::string()> binaryOf(std::vector<std::string> objects) {
    return [objects = std::move(objects)] { return binary(objects); };
}

std::string entities() {
    return "<!DOCTYPE plist [<!ENTITY a \"aaaa\"><!ENTITY b \"&a;&a;&a;\">]>" +
           underKey("<string>&b;&b;</string>");
}

std::string externalEntity() {
    return "<!DOCTYPE plist [<!ENTITY a SYSTEM \"file:///etc/passwd\">]>" + underKey("<string>&a;</string>");
}

const std::vector<MadeFile> refused{
    {"DeepArrays", [] { return underKey(repeated("<array>", million) + repeated("</array>", million)); }},
    {"DeepArraysWithoutEnd", [] { return "<plist>" + repeated("<array>", million); }},
    {"DeepDictionaries", [] { return plist(repeated("<dict><key>k</key>", million)); }},
    {"ADepthOfOneMore", [] { return underKey(repeated("<array>", 256) + repeated("</array>", 256)); }},
    {"HundredMebibytes",
     [] { return underKey("<string>" + std::string(100 * 1024 * 1024, 'x') + "</string>"); }},
    {"HundredMebibytesOfTags", [] { return repeated("<", 100 * 1024 * 1024); }},
    {"HundredMebibytesOfZeros", [] { return std::string(100 * 1024 * 1024, '\0'); }},
    {"Entities", entities},
    {"AnExternalEntity", externalEntity},
    {"TooManyNodes", [] { return underKey("<array>" + repeated("<true/>", 110'000) + "</array>"); }},
    {"TooManyComments", [] { return repeated("<!---->", million) + plist("<dict/>"); }},
    {"TooManyReferences", [] { return underKey("<string>" + repeated("&amp;", million) + "</string>"); }},
    {"CollidingKeys", [] { return plist(keys(half, collidingKey)); }},
    {"CollidingKeysInDisguise",
     [] { return plist(keys(half, [](std::size_t i) { return "&#65;" + collidingKey(i); })); }},
    {"OneKeyOverAndOver", [] { return plist(keys(half, [](std::size_t) { return "k"; })); }},
    {"ABinaryCycle", binaryOf({entry(2), "Qk", array({2})})},
    {"ABinaryCycleOfTwo", binaryOf({entry(2), "Qk", array({3}), array({2})})},
    {"ABinaryDictionaryInItself", binaryOf({entry(0), "Qk"})},
    {"BinaryListsThatDouble", [] { return sharedChain(60, 2); }},
    {"BinaryListsThatGrow", [] { return sharedChain(200, 20'000); }},
    {"DeepBinaryLists", [] { return sharedChain(40'000, 1); }},
    {"ASharedBinaryText",
     binaryOf({entry(2), "Qk", array(std::vector<std::size_t>(49'000, 3)),
               std::string("\x5F\x12\x00\x10\x00\x00", 6) + std::string(0x100000, 'x')})},
    {"ABinaryReferenceOutside", binaryOf({entry(7), "Qk"})},
    {"ABinaryKeyThatIsNoText", binaryOf({entry(1), "\x09"})},
    {"ABinaryNull", binaryOf({entry(2), "Qk", std::string(1, '\0')})},
    {"ABinaryTextWithNul", binaryOf({entry(2), "Qk", std::string("\x53x\0y", 4)})},
    {"HalfABinarySurrogate", binaryOf({entry(2), "Qk", std::string("\x62\xD8\x3D\x00y", 5)})},
    {"ABinaryTextAboveAscii", binaryOf({entry(2), "Qk", "\x52\xC3\xA9"})},
    {"ABinaryTextLongerThanTheFile", binaryOf({entry(2), "Qk", "\x5F\x13\x7F\xFF\xFF\xFF\xFF\xFF\xFF\xFF"})},
};

class HostileTest : public testing::TestWithParam<MadeFile> {};
INSTANTIATE_TEST_SUITE_P(Refused, HostileTest, testing::ValuesIn(refused), nameOf);

} // namespace

TEST_P(HostileTest, IsRefusedQuickly) {
    const auto bytes = GetParam().make();
    std::optional<Dictionary> dictionary;
    EXPECT_LE(time([&] { dictionary = read(bytes); }), allowed);
    EXPECT_FALSE(dictionary);
}

} // namespace prismo
