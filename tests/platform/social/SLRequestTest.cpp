#include "platform/social/SLRequest.h"
#include "tests/support/MemoryWorld.h"

namespace prismo {
namespace {

struct SLRequestTest : MemoryWorld {
    static std::shared_ptr<SLRequest> request(SLRequestMethod method = SLRequestMethod::post) {
        return SLRequest::requestForServiceType(SLServiceTypeTwitter, method, "https://example.com/a.json",
                                                {{"b", "2"}, {"a", "1"}});
    }
    static std::shared_ptr<ACAccount> account() {
        return std::make_shared<ACAccount>(Account{"id", "someone"});
    }
};

TEST_F(SLRequestTest, MethodsHaveThePlatformsValues) {
    EXPECT_EQ(static_cast<int>(SLRequestMethod::get), 0);
    EXPECT_EQ(static_cast<int>(SLRequestMethod::post), 1);
}

TEST_F(SLRequestTest, IsSentOnBehalfOfItsAccount) {
    const auto made = request();
    made->setAccount(account());
    int status = 0;
    made->performRequestWithHandler([&](int answer) { status = answer; });
    ASSERT_EQ(effects.size(), 1U);
    EXPECT_EQ(effects[0].effect, (Effect{"request",
                                         {{"method", "POST"},
                                          {"url", "https://example.com/a.json"},
                                          {"parameters", Dictionary{{"a", "1"}, {"b", "2"}}},
                                          {"account", "someone"}}}));
    EXPECT_EQ(status, 0);
    runFor(0);
    EXPECT_EQ(status, 200);
}

TEST_F(SLRequestTest, GetIsSentAsGet) {
    const auto made = request(SLRequestMethod::get);
    made->setAccount(account());
    made->performRequestWithHandler([](int) {});
    EXPECT_EQ(effects[0].effect.details.at("method"), Value("GET"));
}

TEST_F(SLRequestTest, WithoutAnAccountNothingIsSent) {
    request()->performRequestWithHandler([](int) { FAIL(); });
    runFor(0);
    EXPECT_TRUE(effects.empty());
}

TEST_F(SLRequestTest, StoreListsTheServicesAccountsInOrder) {
    device.setAccounts(MemoryDevice::AccountAccess::granted, {{"2", "zoe"}, {"1", "ada"}});
    const ACAccountStore store;
    const auto accounts =
        store.accountsWithAccountType(store.accountTypeWithAccountTypeIdentifier("twitter"));
    ASSERT_EQ(accounts.size(), 2U);
    EXPECT_EQ(accounts[0]->username(), "zoe");
    EXPECT_EQ(accounts[0]->account(), (Account{"2", "zoe"}));
    EXPECT_EQ(accounts[1]->username(), "ada");
}

TEST_F(SLRequestTest, StoreListsNoAccountsOfOtherServices) {
    device.setAccounts(MemoryDevice::AccountAccess::granted, {{"1", "ada"}});
    const ACAccountStore store;
    EXPECT_TRUE(store.accountsWithAccountType(store.accountTypeWithAccountTypeIdentifier("other")).empty());
}

TEST_F(SLRequestTest, AccessIsAnsweredOnceOnTheRunLoop) {
    for (const bool granted : {true, false}) {
        device.setAccounts(
            granted ? MemoryDevice::AccountAccess::granted : MemoryDevice::AccountAccess::refused, {});
        ACAccountStore store;
        std::vector<bool> answers;
        store.requestAccessToAccountsWithType(store.accountTypeWithAccountTypeIdentifier("twitter"),
                                              [&](bool answer) { answers.push_back(answer); });
        EXPECT_TRUE(answers.empty());
        runFor(0);
        EXPECT_EQ(answers, (std::vector{granted}));
    }
}

} // namespace
} // namespace prismo
