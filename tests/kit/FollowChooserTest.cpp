// Following with more than one account, and on which threads it happens.

#include "tests/kit/FollowWorld.h"

#include <optional>
#include <thread>

namespace prismo {
namespace {

struct FollowChooserTest : FollowWorld {
    std::shared_ptr<UIAlertView> openChooser(const Lines& usernames = {"first", "second", "third"}) {
        setAccounts(usernames);
        accept();
        return alert();
    }
};

TEST_F(FollowChooserTest, AsksWhichAccountToUse) {
    const auto chooser = openChooser();
    EXPECT_EQ(chooser->title(), std::nullopt);
    EXPECT_EQ(chooser->message(), "Looks like you have multiple Twitter accounts on this device. Which one "
                                  "would you like to use?");
    EXPECT_EQ(chooser->buttonTitles(), (Lines{"All!", "first", "second", "third"}));
    EXPECT_EQ(chooser->tag(), 2);
    EXPECT_TRUE(effects.empty());
}

TEST_F(FollowChooserTest, TwoAccountsAreEnoughToAsk) {
    EXPECT_EQ(openChooser({"first", "second"})->buttonTitles(), (Lines{"All!", "first", "second"}));
}

TEST_F(FollowChooserTest, AccountsAreListedInTheServicesOrder) {
    EXPECT_EQ(openChooser({"zoe", "Ada", "max"})->buttonTitles(), (Lines{"All!", "zoe", "Ada", "max"}));
}

TEST_F(FollowChooserTest, CarriesTheAccountsInOrder) {
    const auto* accounts = openChooser()->associatedObject("description").as<Array>();
    ASSERT_TRUE(accounts);
    Lines names;
    for (const auto& account : *accounts)
        names.push_back(account.object<ACAccount>()->username());
    EXPECT_EQ(names, (Lines{"first", "second", "third"}));
}

TEST_F(FollowChooserTest, KeepsThePromptsHandlerAliveUntilDismissed) {
    setAccounts({"first", "second"});
    const auto watched = handlerOf(*showPrompt());
    accept(alert());
    EXPECT_FALSE(watched.expired());
    EXPECT_EQ(handlerOf(*alert()).lock(), watched.lock());
    alert()->clickButtonAtIndex(1);
    EXPECT_TRUE(watched.expired());
}

TEST_F(FollowChooserTest, AccountsAreReleasedWithTheChooser) {
    const auto* accounts = openChooser()->associatedObject("description").as<Array>();
    const std::weak_ptr<ACAccount> watched = accounts->front().object<ACAccount>();
    ASSERT_FALSE(watched.expired());
    alert()->clickButtonAtIndex(1);
    EXPECT_TRUE(watched.expired());
}

TEST_F(FollowChooserTest, AllFollowsWithEveryAccountInOrder) {
    openChooser()->clickButtonAtIndex(0);
    EXPECT_EQ(requests(), (Lines{"first", "second", "third"}));
    for (const auto& request : effectsOfKind("request"))
        EXPECT_EQ(request.details.at("parameters"),
                  Value(Dictionary{{"screen_name", "quillmoth"}, {"follow", "FALSE"}}));
}

TEST_F(FollowChooserTest, ThirdButtonFollowsWithTheSecondAccount) {
    openChooser()->clickButtonAtIndex(2);
    EXPECT_EQ(requests(), (Lines{"second"}));
}

TEST_F(FollowChooserTest, FirstAndLastNamedButtonsAreTheFirstAndLastAccounts) {
    openChooser()->clickButtonAtIndex(1);
    openChooser()->clickButtonAtIndex(3);
    EXPECT_EQ(requests(), (Lines{"first", "third"}));
}

TEST_F(FollowChooserTest, ButtonPastTheAccountsFollowsWithNone) {
    openChooser()->clickButtonAtIndex(4);
    EXPECT_TRUE(requests().empty());
}

TEST_F(FollowChooserTest, EveryChoiceShowsThanksAtOnce) {
    for (const std::size_t index : {0U, 2U}) {
        openChooser()->clickButtonAtIndex(index);
        const auto thanks = alert();
        EXPECT_EQ(thanks->title(), "Done <3");
        EXPECT_EQ(thanks->message(), "Just moving around a few things aaaaaand..... hah! Just kidding. "
                                     "Thanks for following me. Enjoy the tweak! :)");
        EXPECT_EQ(thanks->buttonTitles(), (Lines{"Will do!"}));
        thanks->clickButtonAtIndex(0);
        EXPECT_FALSE(isAlertShown()) << index;
    }
}

TEST_F(FollowChooserTest, ThanksComeAfterTheRequests) {
    const auto chooser = openChooser();
    std::vector<std::size_t> requestsAtThanks;
    const auto subscription = UIApplication::sharedApplication()->observe([&] {
        if (isAlertShown()) requestsAtThanks.push_back(requests().size());
    });
    chooser->clickButtonAtIndex(0);
    EXPECT_EQ(requestsAtThanks, (std::vector<std::size_t>{3}));
}

TEST_F(FollowChooserTest, ThanksHaveNeitherTagNorDelegate) {
    const auto chooser = openChooser();
    const auto handler = handlerOf(*chooser).lock();
    chooser->clickButtonAtIndex(1);
    const auto thanks = alert();
    EXPECT_EQ(thanks->tag(), 0);
    EXPECT_EQ(thanks->associatedObject("show"), Value());
    effects.clear();
    thanks->setTag(1); // would start over if the handler were its delegate
    thanks->clickButtonAtIndex(1);
    EXPECT_EQ(device.runLoop().nextDeadline().value_or(now()), now());
    runFor(1);
    EXPECT_TRUE(effects.empty());
    EXPECT_FALSE(isAlertShown());
}

/// Answers access requests on another thread, which ends before `requestAccountAccess` returns.
struct ThreadedDevice : MemoryDevice {
    void requestAccountAccess(std::function<void(bool)> completion) override {
        std::thread([completion = std::move(completion)] { completion(true); }).join();
    }
};

struct FollowThreadTest : testing::Test {
    FollowThreadTest() {
        UIApplication::restart();
        device.setEffectObserver([this](const Effect& effect) {
            effects.push_back(effect.kind +
                              (std::this_thread::get_id() == mainThread ? " here" : " elsewhere"));
        });
    }
    ~FollowThreadTest() override { device.setEffectObserver(nullptr); }

    void accept(std::vector<Account> accounts) {
        device.setAccounts(MemoryDevice::AccountAccess::granted, std::move(accounts));
        FollowWorld::showPrompt()->clickButtonAtIndex(1);
    }

    std::thread::id mainThread = std::this_thread::get_id();
    ThreadedDevice device;
    Device::Current current{device};
    std::vector<std::string> effects;
};

TEST_F(FollowThreadTest, SingleAccountFollowsOnTheServiceThreadAndThanksOnTheMainThread) {
    accept({{"1", "first"}});
    EXPECT_EQ(effects, (std::vector<std::string>{"request elsewhere"}));
    EXPECT_FALSE(FollowWorld::isAlertShown());
    device.runLoop().run(Seconds(0));
    EXPECT_TRUE(FollowWorld::isAlertShown());
}

TEST_F(FollowThreadTest, SingleAccountFollowsBeforeTheThanksAreQueued) {
    std::optional<bool> isSomethingQueued;
    device.setEffectObserver(
        [&](const Effect&) { isSomethingQueued = device.runLoop().nextDeadline().has_value(); });
    accept({{"1", "first"}});
    EXPECT_EQ(isSomethingQueued, false);
}

TEST_F(FollowThreadTest, ProfileIsOpenedOnTheServiceThread) {
    device.setLinkSchemes({"tweetbot"});
    accept({});
    EXPECT_EQ(effects, (std::vector<std::string>{"canOpenURL elsewhere", "openURL elsewhere"}));
    EXPECT_EQ(device.runLoop().nextDeadline(), std::nullopt);
}

TEST_F(FollowThreadTest, ChooserIsShownOnTheMainThread) {
    accept({{"1", "first"}, {"2", "second"}});
    EXPECT_FALSE(FollowWorld::isAlertShown());
    device.runLoop().run(Seconds(0));
    EXPECT_EQ(FollowWorld::alert()->tag(), 2);
}

} // namespace
} // namespace prismo
