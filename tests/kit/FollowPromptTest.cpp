#include "tests/kit/FollowWorld.h"

namespace prismo {
namespace {

struct FollowPromptTest : FollowWorld {};

TEST_F(FollowPromptTest, PromptShowsTheCallersTitleAndMessage) {
    FBShowTwitterFollowAlert("Welcome", "Follow me?", "quillmoth");
    EXPECT_EQ(alert()->title(), "Welcome");
    EXPECT_EQ(alert()->message(), "Follow me?");
}

TEST_F(FollowPromptTest, MissingMessageShowsTheInvitation) {
    FBShowTwitterFollowAlert("Welcome", std::nullopt, "quillmoth");
    EXPECT_EQ(alert()->message(),
              "Hey there! Thanks for installing my tweak! If you'd like to follow me on Twitter for more "
              "updates, tweak giveaways and other cool stuff, hit the button below!");
}

TEST_F(FollowPromptTest, EmptyMessageStaysEmpty) {
    FBShowTwitterFollowAlert("Welcome", "", "quillmoth");
    EXPECT_EQ(alert()->message(), "");
}

TEST_F(FollowPromptTest, MissingTitleStaysMissing) {
    FBShowTwitterFollowAlert(std::nullopt, "Follow me?", "quillmoth");
    EXPECT_EQ(alert()->title(), std::nullopt);
}

TEST_F(FollowPromptTest, PromptHasTwoButtonsAndItsTag) {
    const auto prompt = showPrompt();
    EXPECT_EQ(prompt->buttonTitles(), (Lines{"No thanks!", "I'd love to!"}));
    EXPECT_EQ(prompt->tag(), 1);
    EXPECT_EQ(UIApplication::sharedApplication()->presented().size(), 1U);
}

TEST_F(FollowPromptTest, PromptKeepsItsHandlerAlive) {
    const auto watched = handlerOf(*showPrompt());
    ASSERT_FALSE(watched.expired());
    EXPECT_EQ(watched.lock()->username(), "quillmoth");
    UIApplication::restart();
    EXPECT_TRUE(watched.expired());
}

TEST_F(FollowPromptTest, PromptHoldsNoAccounts) {
    EXPECT_EQ(showPrompt()->associatedObject("description"), Value());
}

TEST_F(FollowPromptTest, NoThanksRequestsNoAccess) {
    setAccounts({"first"});
    showPrompt()->clickButtonAtIndex(0);
    EXPECT_EQ(device.runLoop().nextDeadline(), std::nullopt);
    EXPECT_TRUE(effects.empty());
    EXPECT_FALSE(isAlertShown());
}

TEST_F(FollowPromptTest, HandlerIsReleasedWhenThePromptIsDeclined) {
    const auto watched = handlerOf(*showPrompt());
    alert()->clickButtonAtIndex(0);
    EXPECT_TRUE(watched.expired());
}

TEST_F(FollowPromptTest, OtherButtonsAndTagsDoNothing) {
    setAccounts({"first"});
    const auto prompt = showPrompt();
    prompt->clickButtonAtIndex(2);
    for (const int tag : {0, 3}) {
        prompt->setTag(tag);
        prompt->clickButtonAtIndex(0);
        prompt->clickButtonAtIndex(1);
    }
    EXPECT_EQ(device.runLoop().nextDeadline(), std::nullopt);
    EXPECT_TRUE(effects.empty());
    EXPECT_FALSE(isAlertShown());
}

TEST_F(FollowPromptTest, RefusedAccessEndsSilently) {
    device.setAccounts(MemoryDevice::AccountAccess::refused, {{"1", "first"}});
    accept();
    EXPECT_TRUE(effects.empty());
    EXPECT_FALSE(isAlertShown());
}

TEST_F(FollowPromptTest, PendingAccessKeepsTheHandlerAlive) {
    const auto watched = handlerOf(*showPrompt());
    alert()->clickButtonAtIndex(1);
    EXPECT_FALSE(isAlertShown());
    EXPECT_FALSE(watched.expired());
    runFor(0);
    EXPECT_TRUE(watched.expired());
}

TEST_F(FollowPromptTest, WithoutAccountsTheProfileOpensWithoutAnAlert) {
    setAccounts({});
    device.setLinkSchemes({"twitterrific", "twitter"});
    accept();
    EXPECT_EQ(links(), (Lines{"canOpenURL tweetbot: no", "canOpenURL twitterrific: yes",
                              "openURL twitterrific:///profile?screen_name=quillmoth yes"}));
    EXPECT_TRUE(requests().empty());
    EXPECT_FALSE(isAlertShown());
}

TEST_F(FollowPromptTest, WithoutAccountsOrClientsTheProfileOpensOnTheWeb) {
    setAccounts({});
    device.setLinkSchemes({"http"});
    accept();
    EXPECT_EQ(links().back(), "openURL http://twitter.com/quillmoth yes");
    EXPECT_FALSE(isAlertShown());
}

TEST_F(FollowPromptTest, SingleAccountFollowsWithASignedRequest) {
    setAccounts({"first"});
    accept();
    ASSERT_EQ(effects.size(), 1U);
    EXPECT_EQ(effects[0].effect,
              (Effect{"request",
                      {{"method", "POST"},
                       {"url", "https://api.twitter.com/1.1/friendships/create.json"},
                       {"parameters", Dictionary{{"screen_name", "quillmoth"}, {"follow", "FALSE"}}},
                       {"account", "first"}}}));
}

TEST_F(FollowPromptTest, SingleAccountIsThankedWithoutAChooser) {
    setAccounts({"first"});
    accept();
    ASSERT_TRUE(isAlertShown());
    EXPECT_EQ(alert()->title(), "Done <3");
    EXPECT_EQ(alert()->message(), "Awesome. Thanks for following me ^-^");
    EXPECT_EQ(alert()->buttonTitles(), (Lines{"You're welcome <3"}));
    EXPECT_EQ(UIApplication::sharedApplication()->presented().size(), 1U);
}

TEST_F(FollowPromptTest, SingleAccountIsThankedOneTurnAfterTheRequest) {
    setAccounts({"first"});
    showPrompt()->clickButtonAtIndex(1);
    EXPECT_TRUE(effects.empty());
    device.runLoop().callDue();
    EXPECT_EQ(requests(), (Lines{"first"}));
    EXPECT_FALSE(isAlertShown());
    device.runLoop().callDue();
    EXPECT_TRUE(isAlertShown());
}

TEST_F(FollowPromptTest, ThanksHaveNeitherTagNorDelegate) {
    setAccounts({"first"});
    accept();
    const auto thanks = alert();
    EXPECT_EQ(thanks->tag(), 0);
    EXPECT_EQ(thanks->associatedObject("show"), Value());
    effects.clear();
    thanks->setTag(1); // would start over if the handler were its delegate
    thanks->clickButtonAtIndex(1);
    EXPECT_EQ(device.runLoop().nextDeadline(), std::nullopt);
    EXPECT_FALSE(isAlertShown());
}

TEST_F(FollowPromptTest, HandlerIsReleasedAfterASingleAccountFollows) {
    setAccounts({"first"});
    const auto watched = handlerOf(*showPrompt());
    accept(alert());
    EXPECT_TRUE(watched.expired());
}

TEST_F(FollowPromptTest, ThanksDoNotWaitForTheRequestsAnswer) {
    struct SilentDevice : MemoryDevice {
        void send(const AccountRequest& /*request*/, std::function<void(int)> /*completion*/) override {}
    };
    SilentDevice silent;
    const Device::Current inner(silent);
    silent.setAccounts(MemoryDevice::AccountAccess::granted, {{"1", "first"}});
    showPrompt()->clickButtonAtIndex(1);
    silent.runLoop().run(Seconds(1));
    EXPECT_EQ(alert()->message(), "Awesome. Thanks for following me ^-^");
}

} // namespace
} // namespace prismo
