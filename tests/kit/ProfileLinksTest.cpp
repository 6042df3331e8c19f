#include "kit/FBOpenLinks.h"
#include "tests/support/MemoryWorld.h"

namespace prismo {
namespace {

using Lines = std::vector<std::string>;

struct ProfileLinksTest : MemoryWorld {};

TEST_F(ProfileLinksTest, TweetbotIsProbedFirst) {
    device.setLinkSchemes({"tweetbot"});
    EXPECT_TRUE(FBOpenTwitterUsername("someone"));
    EXPECT_EQ(links(), (Lines{"canOpenURL tweetbot: yes", "openURL tweetbot:///user_profile/someone yes"}));
}

TEST_F(ProfileLinksTest, TwitterrificIsSecond) {
    device.setLinkSchemes({"twitterrific"});
    EXPECT_TRUE(FBOpenTwitterUsername("someone"));
    EXPECT_EQ(links(), (Lines{"canOpenURL tweetbot: no", "canOpenURL twitterrific: yes",
                              "openURL twitterrific:///profile?screen_name=someone yes"}));
}

TEST_F(ProfileLinksTest, TweetingsIsThird) {
    device.setLinkSchemes({"tweetings"});
    EXPECT_TRUE(FBOpenTwitterUsername("someone"));
    EXPECT_EQ(links(),
              (Lines{"canOpenURL tweetbot: no", "canOpenURL twitterrific: no", "canOpenURL tweetings: yes",
                     "openURL tweetings:///user?screen_name=someone yes"}));
}

TEST_F(ProfileLinksTest, TwitterIsFourth) {
    device.setLinkSchemes({"twitter"});
    EXPECT_TRUE(FBOpenTwitterUsername("someone"));
    EXPECT_EQ(links(),
              (Lines{"canOpenURL tweetbot: no", "canOpenURL twitterrific: no", "canOpenURL tweetings: no",
                     "canOpenURL twitter: yes", "openURL twitter://user?screen_name=someone yes"}));
}

TEST_F(ProfileLinksTest, WebIsLastAndOpensOverPlainHTTPWithoutAProbe) {
    device.setLinkSchemes({"http", "https"});
    EXPECT_TRUE(FBOpenTwitterUsername("someone"));
    EXPECT_EQ(links(),
              (Lines{"canOpenURL tweetbot: no", "canOpenURL twitterrific: no", "canOpenURL tweetings: no",
                     "canOpenURL twitter: no", "openURL http://twitter.com/someone yes"}));
}

TEST_F(ProfileLinksTest, TweetbotWinsOverTwitter) {
    device.setLinkSchemes({"twitter", "tweetbot", "http"});
    FBOpenTwitterUsername("someone");
    EXPECT_EQ(links().back(), "openURL tweetbot:///user_profile/someone yes");
}

TEST_F(ProfileLinksTest, TwitterrificWinsOverTweetingsWhichWinsOverTwitter) {
    device.setLinkSchemes({"twitter", "tweetings", "twitterrific"});
    FBOpenTwitterUsername("someone");
    EXPECT_EQ(links().back(), "openURL twitterrific:///profile?screen_name=someone yes");
    device.setLinkSchemes({"twitter", "tweetings"});
    FBOpenTwitterUsername("someone");
    EXPECT_EQ(links().back(), "openURL tweetings:///user?screen_name=someone yes");
}

TEST_F(ProfileLinksTest, ReturnsFalseIfNothingOpensTheWeb) {
    device.setLinkSchemes({"https"});
    EXPECT_FALSE(FBOpenTwitterUsername("someone"));
    EXPECT_EQ(links().back(), "openURL http://twitter.com/someone no");
}

TEST_F(ProfileLinksTest, UsernameGoesIntoTheLinkUnescaped) {
    device.setLinkSchemes({"tweetings"});
    EXPECT_TRUE(FBOpenTwitterUsername("a/b?c&d#e+%20"));
    EXPECT_EQ(links().back(), "openURL tweetings:///user?screen_name=a/b?c&d#e+%20 yes");
}

TEST_F(ProfileLinksTest, ReturnsFalseForAUsernameInvalidInALink) {
    device.setLinkSchemes({"tweetings"});
    for (const std::string name : {"a b", "\xC3\xBC", "a\"b", "100%"}) {
        EXPECT_FALSE(FBOpenTwitterUsername(name));
        EXPECT_EQ(links().back(), "openURL tweetings:///user?screen_name=" + name + " no");
    }
}

TEST_F(ProfileLinksTest, ReturnsFalseWithoutFurtherTriesIfTheClientRefusesTheLink) {
    struct RefusingDevice : MemoryDevice {
        bool open(const std::string& /*url*/) override { return false; }
    };
    RefusingDevice refusing;
    const Device::Current inner(refusing);
    refusing.setEffectObserver([this](const Effect& effect) { effects.push_back({{}, effect}); });
    refusing.setLinkSchemes({"twitterrific", "twitter", "http"});
    EXPECT_FALSE(FBOpenTwitterUsername("a b"));
    EXPECT_EQ(links(), (Lines{"canOpenURL tweetbot: no", "canOpenURL twitterrific: yes",
                              "openURL twitterrific:///profile?screen_name=a b no"}));
}

TEST_F(ProfileLinksTest, MailOpensWithoutAProbe) {
    device.setLinkSchemes({"mailto"});
    EXPECT_TRUE(FBOpenMailAddress("someone@example.com"));
    EXPECT_EQ(links(), (Lines{"openURL mailto:someone@example.com yes"}));
}

TEST_F(ProfileLinksTest, MailAddressGoesIntoTheLinkUnescapedAndMayNotOpen) {
    device.setLinkSchemes({"mailto"});
    EXPECT_FALSE(FBOpenMailAddress("a b+c@example.com?subject=\xC3\xBC"));
    EXPECT_EQ(links(), (Lines{"openURL mailto:a b+c@example.com?subject=\xC3\xBC no"}));
}

} // namespace
} // namespace prismo
