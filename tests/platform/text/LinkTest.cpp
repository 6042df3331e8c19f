#include "platform/text/Link.h"

#include <gtest/gtest.h>

namespace prismo {
namespace {

TEST(LinkTest, SchemeIsTheTextBeforeTheFirstColon) {
    EXPECT_EQ(linkScheme("mailto:a@example.com"), "mailto");
    EXPECT_EQ(linkScheme("x-y.z+1://a:b"), "x-y.z+1");
    EXPECT_EQ(linkScheme("cydia:"), "cydia");
}

TEST(LinkTest, SchemeIsLowercased) { EXPECT_EQ(linkScheme("HTTP://Example.COM/"), "http"); }

TEST(LinkTest, ReservedCharactersAndCompleteEscapesAreAllowed) {
    EXPECT_EQ(linkScheme("http://h/-._~:/?#[]@!$&'()*+,;=%20%C3%bc"), "http");
}

TEST(LinkTest, TextWithoutASchemeIsNotALink) {
    for (const auto* text : {"", ":", "a", "//a:", "-a:", "1a:", " a:", "a b:", "../a:", "\xC3\xBC:"})
        EXPECT_EQ(linkScheme(text), std::nullopt) << text;
}

TEST(LinkTest, TextThatNeedsEscapingIsNotALink) {
    for (const std::string text : {" ", "\n", "\"", "<", ">", "\\", "^", "`", "{", "|", "}", "\x7F",
                                   "\xC3\xBC", "%", "%2", "%zz", "a%2"})
        EXPECT_EQ(linkScheme("http://" + text), std::nullopt) << text;
    EXPECT_EQ(linkScheme(std::string("http:\0", 6)), std::nullopt);
}

TEST(LinkTest, LinkIsAtMost65536BytesLong) {
    EXPECT_EQ(linkScheme("a:" + std::string(65'534, 'b')), "a");
    EXPECT_EQ(linkScheme("a:" + std::string(65'535, 'b')), std::nullopt);
}

TEST(LinkTest, EncodingKeepsOnlyUnreservedBytes) {
    EXPECT_EQ(percentEncoded("Az09-._~"), "Az09-._~");
    EXPECT_EQ(percentEncoded(" +!*'()/ü\n"), "%20%2B%21%2A%27%28%29%2F%C3%BC%0A");
}

} // namespace
} // namespace prismo
