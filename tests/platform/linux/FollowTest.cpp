// Follows an account, from the prompt to a server that checks the signature, with the threads of a real
// device.

#include "kit/FBWelcomeTwitterHandler.h"
#include "platform/foundation/EffectLog.h"
#include "platform/linux/LinuxDevice.h"
#include "platform/local/accounts/CurlRequestSender.h"
#include "platform/uikit/UIApplication.h"
#include "tests/platform/local/accounts/AccountWorld.h"
#include "tests/platform/local/accounts/SigningServer.h"
#include "tests/platform/local/desktop/DesktopWorld.h"

#include <chrono>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

namespace prismo {

namespace {

using Lines = std::vector<std::string>;

constexpr const char* serviceHost = "api.twitter.com";

/// Sends its requests as the real device does, but to the test's server.
class LoopbackDevice : public LinuxDevice {
  public:
    LoopbackDevice(const DeviceRoot& root, const SigningServer& server)
        : LinuxDevice(root.hostPath("/")), sender_(server.options()),
          service_(accountFile(this->root()), [this] { return &sender_; }) {}

  protected:
    void send(const AccountRequest& request, std::function<void(int status)> completion) override {
        service_.send(request, std::move(completion));
    }

  private:
    CurlRequestSender sender_;
    AccountService service_;
};

class FollowTest : public testing::Test, public AccountWorld {
  protected:
    FollowTest() { UIApplication::restart(); }

    /// The person has accounts with these names, all with the secrets that the server knows.
    void keepAccounts(const Lines& usernames) {
        std::string entries;
        for (const auto& username : usernames)
            entries += entry("id-" + username, username, SigningServer::secrets());
        writeAccounts(entries);
    }
    template <typename Predicate>
    void runUntil(Predicate predicate) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        while (!predicate()) {
            if (std::chrono::steady_clock::now() > end) throw std::runtime_error("nothing happens");
            device.runLoop().run(Seconds(0.005));
        }
    }
    void acceptInvitation() {
        FBShowTwitterFollowAlert(std::nullopt, std::nullopt, "quillmoth");
        topmostPresented<UIAlertView>()->clickButtonAtIndex(1);
    }
    std::shared_ptr<UIAlertView> nextAlert() {
        runUntil([] { return topmostPresented<UIAlertView>() != nullptr; });
        return topmostPresented<UIAlertView>();
    }
    Lines effects() const {
        Lines result;
        for (const auto& [kind, details] : log.effects())
            result.push_back(kind + ' ' + valueForKey(details, kind == "request" ? "account" : "url").text());
        return result;
    }
    void expectValidRequests(int count) {
        for (int i = 0; i < count; ++i) {
            const auto request = server.request();
            EXPECT_EQ(request["valid"], true);
            EXPECT_EQ(request["method"], "POST");
            EXPECT_EQ(request["path"], "/1.1/friendships/create.json");
            EXPECT_EQ(request["body"], "follow=FALSE&screen_name=quillmoth");
        }
        EXPECT_FALSE(server.hasRequest());
    }

    SigningServer server{serviceHost};
    DesktopWorld& desktop = DesktopWorld::shared();
    LoopbackDevice device{root(), server};
    Device::Current current{device};
    EffectLog log{device};
};

} // namespace

TEST_F(FollowTest, OneAccountSendsOneValidRequestAndIsThanked) {
    keepAccounts({"zoe"});
    acceptInvitation();
    EXPECT_EQ(nextAlert()->message(), "Awesome. Thanks for following me ^-^");
    expectValidRequests(1);
    EXPECT_EQ(effects(), (Lines{"request zoe"}));
}

TEST_F(FollowTest, AllOfThreeAccountsSendThreeValidRequests) {
    keepAccounts({"zoe", "amy", "max"});
    acceptInvitation();
    const auto chooser = nextAlert();
    EXPECT_EQ(chooser->buttonTitles(), (Lines{"All!", "zoe", "amy", "max"}));
    chooser->clickButtonAtIndex(0);
    EXPECT_EQ(nextAlert()->title(), "Done <3");
    expectValidRequests(3);
    EXPECT_EQ(effects(), (Lines{"request zoe", "request amy", "request max"}));
}

TEST_F(FollowTest, NoAccountOpensTheProfileInstead) {
    keepAccounts({});
    acceptInvitation();
    runUntil([&] { return !effects().empty() && effects().back().starts_with("openURL"); });
    EXPECT_EQ(effects(), (Lines{"canOpenURL tweetbot:", "openURL tweetbot:///user_profile/quillmoth"}));
    EXPECT_EQ(desktop.start().arguments, (Lines{"--link", "tweetbot:///user_profile/quillmoth"}));
    EXPECT_FALSE(topmostPresented<UIAlertView>());
    EXPECT_FALSE(server.hasRequest());
}

TEST_F(FollowTest, AccountWithOtherSecretsIsRefusedButThanked) {
    writeAccounts(entry("1", "amy"));
    acceptInvitation();
    EXPECT_EQ(nextAlert()->message(), "Awesome. Thanks for following me ^-^");
    EXPECT_EQ(server.request()["valid"], false);
}

} // namespace prismo
