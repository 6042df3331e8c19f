#include "platform/local/accounts/OAuth.h"

#include <gtest/gtest.h>

namespace prismo {

using oauth::Parameters;

// The examples of RFC 5849, in sections 3.4.1.1 and 1.2.

TEST(OAuthTest, BaseStringIsTheStandardsOwn) {
    auto parameters = oauth::formDecoded("b5=%3D%253D&a3=a&c%40=&a2=r%20b");
    const auto body = oauth::formDecoded("c2&a3=2+q");
    parameters.insert(parameters.end(), body.begin(), body.end());
    for (const auto& [name, value] : Parameters{{"oauth_consumer_key", "9djdj82h48djs9d2"},
                                                {"oauth_token", "kkk9d7dh3k39sjv7"},
                                                {"oauth_signature_method", "HMAC-SHA1"},
                                                {"oauth_timestamp", "137131201"},
                                                {"oauth_nonce", "7d8f3e4a"}})
        parameters.emplace_back(name, value);
    EXPECT_EQ(
        oauth::signatureBaseString("POST", "http://example.com/request", parameters),
        "POST&http%3A%2F%2Fexample.com%2Frequest&a2%3Dr%2520b%26a3%3D2%2520q%26a3%3Da%26b5%3D%253D%25253D"
        "%26c%2540%3D%26c2%3D%26oauth_consumer_key%3D9djdj82h48djs9d2%26oauth_nonce%3D7d8f3e4a"
        "%26oauth_signature_method%3DHMAC-SHA1%26oauth_timestamp%3D137131201"
        "%26oauth_token%3Dkkk9d7dh3k39sjv7");
}

TEST(OAuthTest, SignatureWithoutATokenIsTheStandardsOwn) {
    const auto base = oauth::signatureBaseString("POST", "https://photos.example.net/initiate",
                                                 {{"oauth_consumer_key", "dpf43f3p2l4k3l03"},
                                                  {"oauth_signature_method", "HMAC-SHA1"},
                                                  {"oauth_timestamp", "137131200"},
                                                  {"oauth_nonce", "wIjqoS"},
                                                  {"oauth_callback", "http://printer.example.com/ready"}});
    EXPECT_EQ(oauth::signature(base, "kd94hf93k423kf44", ""), "74KNZJeDHnMBp0EMJ9ZHt/XKycU=");
}

TEST(OAuthTest, SignatureWithATokenIsTheStandardsOwn) {
    const auto base = oauth::signatureBaseString("GET", "http://photos.example.net/photos",
                                                 {{"file", "vacation.jpg"},
                                                  {"size", "original"},
                                                  {"oauth_consumer_key", "dpf43f3p2l4k3l03"},
                                                  {"oauth_token", "nnch734d00sl2jdk"},
                                                  {"oauth_signature_method", "HMAC-SHA1"},
                                                  {"oauth_timestamp", "137131202"},
                                                  {"oauth_nonce", "chapoH"}});
    EXPECT_EQ(oauth::signature(base, "kd94hf93k423kf44", "pfkkdhi9sl3r4s00"), "MdpQcU8iPSUjWoN/UDMsK2sui9I=");
}

TEST(OAuthTest, ParametersAreSortedInEncodedForm) {
    // "~" stays and comes after "%" and the letters, although "ü" is the greater byte before it is encoded.
    const auto base = oauth::signatureBaseString("GET", "u", {{"~", "1"}, {"a", "2"}, {"ü", "3"}});
    EXPECT_EQ(base, "GET&u&%25C3%25BC%3D3%26a%3D2%26~%3D1");
}

TEST(OAuthTest, ValuesOfOneNameAreSorted) {
    const auto base =
        oauth::signatureBaseString("GET", "u", {{"a", "z"}, {"a", "b"}, {"a-", "0"}, {"a", "B"}});
    EXPECT_EQ(base, "GET&u&a%3DB%26a%3Db%26a%3Dz%26a-%3D0");
}

TEST(OAuthTest, InvalidEscapesAreKept) {
    EXPECT_EQ(oauth::formDecoded("a=%4&b=%zz&c=%&=d&&e"),
              (Parameters{{"a", "%4"}, {"b", "%zz"}, {"c", "%"}, {"", "d"}, {"e", ""}}));
}

TEST(OAuthTest, FormDecodingUndoesFormEncoding) {
    const Parameters parameters{{"a b", "c+d&e=f"}, {"a b", ""}, {"ü", "%20😀"}};
    EXPECT_EQ(oauth::formDecoded(oauth::formEncoded(parameters)), parameters);
}

TEST(OAuthTest, OccasionsDiffer) {
    EXPECT_NE(oauth::Occasion::now().value().nonce, oauth::Occasion::now().value().nonce);
}

TEST(OAuthTest, HeaderHoldsKeysButNoSecrets) {
    const auto header = oauth::authorization("GET", "https://example.com/", {},
                                             {"theKey", "hushConsumer", "theToken", "hushToken"}, {"n", "1"});
    EXPECT_TRUE(header.starts_with("OAuth oauth_consumer_key=\"theKey\", oauth_nonce=\"n\", ")) << header;
    EXPECT_NE(header.find("oauth_token=\"theToken\""), std::string::npos);
    EXPECT_EQ(header.find("hush"), std::string::npos);
}

} // namespace prismo
