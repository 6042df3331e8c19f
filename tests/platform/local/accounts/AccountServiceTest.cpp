#include "platform/local/accounts/AccountService.h"
#include "platform/local/accounts/CurlRequestSender.h"
#include "tests/platform/local/accounts/AccountWorld.h"
#include "tests/platform/local/accounts/SigningServer.h"
#include "tests/support/Answer.h"

#include <fstream>
#include <gtest/gtest.h>
#include <stdexcept>
#include <thread>
#include <unistd.h>

namespace prismo {

namespace {

class AccountServiceTest : public testing::Test, public AccountWorld {
  protected:
    AccountService service{accountFile(root()), [] { return nullptr; }};
    Answer<bool> granted;
    Answer<int> status;
};

AccountRequest follow(const Account& account) {
    return {"POST",
            std::string("https://") + SigningServer::host + "/1.1/friendships/create.json",
            {{"screen_name", "quillmoth"}, {"follow", "FALSE"}},
            account};
}

} // namespace

TEST_F(AccountServiceTest, AccessIsGrantedIfThereAreAccounts) {
    writeAccounts(entry("1", "amy"));
    EXPECT_TRUE(service.requestAccess(granted.completion()));
    EXPECT_TRUE(granted.get());
}

TEST_F(AccountServiceTest, AccessToAnEmptyListIsGranted) {
    writeAccounts("");
    service.requestAccess(granted.completion());
    EXPECT_TRUE(granted.get());
    EXPECT_TRUE(service.accounts().empty());
}

TEST_F(AccountServiceTest, AccessIsRefusedWithoutAFile) {
    EXPECT_TRUE(service.requestAccess(granted.completion()));
    EXPECT_FALSE(granted.get());
}

TEST_F(AccountServiceTest, AccessToAFileThatOthersReadIsRefusedWithAProblem) {
    writeAccounts(entry("1", "amy"), 0644);
    const auto requested = service.requestAccess(granted.completion());
    EXPECT_FALSE(granted.get());
    ASSERT_FALSE(requested);
    EXPECT_EQ(requested.problem().path, file());
    EXPECT_TRUE(service.accounts().empty());
}

TEST_F(AccountServiceTest, AnswerComesOnANewThread) {
    Answer<std::thread::id> thread;
    service.requestAccess(
        [completion = thread.completion()](bool) { completion(std::this_thread::get_id()); });
    EXPECT_NE(thread.get(), std::this_thread::get_id());
}

TEST_F(AccountServiceTest, DestructorWaitsForTheAnswer) {
    std::optional<AccountService> ending(std::in_place, accountFile(root()), [] { return nullptr; });
    ending->requestAccess(granted.completion());
    ending.reset();
    EXPECT_TRUE(granted.isThere());
}

TEST_F(AccountServiceTest, AnswerWithoutADeviceIsHarmless) {
    service.requestAccess([](bool) { Device::current(); });
    service.requestAccess(granted.completion());
    EXPECT_FALSE(granted.get());
}

TEST_F(AccountServiceTest, OtherExceptionsOfAnAnswerAreNotIgnored) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto answer = [&] {
        AccountService(accountFile(root()), [] { return nullptr; }).requestAccess([&](bool) {
            // The process that dies here has its own directory, and would leave it behind.
            std::filesystem::remove_all(directory());
            throw std::logic_error("a mistake");
        });
    };
    EXPECT_DEATH(answer(), "a mistake");
}

TEST_F(AccountServiceTest, FinishedAnswersFreeTheirMemory) {
    const auto pages = [] {
        std::size_t result = 0;
        std::ifstream("/proc/self/statm") >> result;
        return result;
    };
    const auto ask = [&] {
        Answer<bool> answer;
        service.requestAccess(answer.completion());
        answer.get();
    };
    constexpr std::size_t count = 200;
    constexpr std::size_t stack = 1U << 20U; // of each thread, at least
    ask();
    const auto before = pages();
    for (std::size_t i = 0; i < count; ++i)
        ask();
    EXPECT_LT(pages(), before + count * stack / static_cast<std::size_t>(::sysconf(_SC_PAGESIZE)));
}

TEST_F(AccountServiceTest, AccountsAreAlwaysCurrent) {
    writeAccounts(entry("2", "zoe") + entry("1", "amy"));
    EXPECT_EQ(service.accounts(), (std::vector<Account>{{"2", "zoe"}, {"1", "amy"}}));
    writeAccounts(entry("1", "amy"));
    EXPECT_EQ(service.accounts(), (std::vector<Account>{{"1", "amy"}}));
}

TEST_F(AccountServiceTest, RequestWithoutASenderIsNotAnswered) {
    writeAccounts(entry("1", "amy"));
    service.send(follow({"1", "amy"}), status.completion());
    EXPECT_EQ(status.get(), 0);
}

TEST_F(AccountServiceTest, RequestIsSignedForItsAccount) {
    SigningServer server;
    CurlRequestSender sender(server.options());
    const AccountService sending(accountFile(root()), [&] { return &sender; });
    writeAccounts(entry("1", "amy") + entry("2", "zoe", SigningServer::secrets()));
    sending.send(follow({"2", "zoe"}), status.completion());
    EXPECT_EQ(status.get(), 200);
    Answer<int> other;
    sending.send(follow({"1", "amy"}), other.completion());
    EXPECT_EQ(other.get(), 401);
}

TEST_F(AccountServiceTest, RequestOfAnUnknownAccountIsNotSent) {
    bool asked = false;
    const AccountService sending(accountFile(root()), [&] {
        asked = true;
        return nullptr;
    });
    writeAccounts(entry("1", "amy"));
    sending.send(follow({"9", "amy"}), status.completion());
    EXPECT_EQ(status.get(), 0);
    EXPECT_FALSE(asked);
}

TEST_F(AccountServiceTest, FollowingGoesOnFromTheAnswersThread) {
    SigningServer server;
    CurlRequestSender sender(server.options());
    AccountService sending(accountFile(root()), [&] { return &sender; });
    writeAccounts(entry("1", "zoe", SigningServer::secrets()));
    sending.requestAccess([&](bool) {
        const auto accounts = sending.accounts();
        sending.send(follow(accounts.at(0)), status.completion());
    });
    EXPECT_EQ(status.get(), 200);
}

} // namespace prismo
