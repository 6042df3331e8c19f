#include "platform/linux/LinuxDevice.h"

#include "tests/platform/local/accounts/AccountWorld.h"
#include "tests/platform/local/desktop/DesktopWorld.h"
#include "tests/support/Answer.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <optional>
#include <thread>

namespace prismo {

namespace {

class LinuxServicesTest : public testing::Test, public AccountWorld {
  protected:
    LinuxServicesTest() {
        device->setEffectObserver([this](const Effect& effect) { effects.push_back(effect); });
        device->setProblemObserver([this](const Problem& problem) { problems.push_back(problem); });
    }
    /// The device's path of an application's icon.
    std::string icon(const std::string& id) {
        for (const auto& application : device->installedApplications())
            if (application.displayIdentifier == id) return application.iconPath;
        return "none such";
    }
    void install(const std::string& id) {
        const auto bundle = std::filesystem::path(root().hostPath("/Applications")) / (id + ".app");
        std::filesystem::create_directories(bundle);
        std::ofstream(bundle / "Info.plist")
            << R"(<plist version="1.0"><dict><key>CFBundleIdentifier</key><string>)" << id
            << "</string></dict></plist>";
    }

    DesktopWorld& desktop = DesktopWorld::shared();
    std::vector<Effect> effects;
    std::vector<Problem> problems;
    std::optional<LinuxDevice> device{std::in_place, root().hostPath("/")};
};

} // namespace

TEST_F(LinuxServicesTest, RootWithoutApplicationsHasThoseOfTheDesktop) {
    const auto& all = device->installedApplications();
    EXPECT_EQ(std::ranges::count(all, "org.example.system", &InstalledApplication::displayIdentifier), 1);
}

TEST_F(LinuxServicesTest, RootWithAnApplicationHasOnlyItsOwn) {
    install("com.example.one");
    const auto& all = device->installedApplications();
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(all[0].displayIdentifier, "com.example.one");
}

TEST_F(LinuxServicesTest, DesktopApplicationThatNoSettingsFileCanNameIsLeftOut) {
    EXPECT_EQ(icon("con\x01trol"), "none such");
}

TEST_F(LinuxServicesTest, IconOfTheDesktopIsReadLikeAFileOfTheDevice) {
    const auto bytes = device->readFile(icon("absolute"));
    ASSERT_TRUE(bytes);
    EXPECT_EQ(std::string(bytes->begin(), bytes->end()), contents(desktop.systemData() / "absolute.png"));
}

TEST_F(LinuxServicesTest, NoOtherFileOfThisMachineIsReached) {
    ASSERT_NE(icon("absolute"), "");
    EXPECT_FALSE(device->readFile(desktop.systemData() / "absolute.png"));
    EXPECT_FALSE(device->readFile(icon("absolute") + "/.."));
}

TEST_F(LinuxServicesTest, LinkIsOpenedByTheDesktop) {
    EXPECT_TRUE(device->canOpenURL("tweetbot:"));
    EXPECT_TRUE(device->openURL("tweetbot:///user_profile/quillmoth"));
    EXPECT_EQ(desktop.start().arguments,
              (std::vector<std::string>{"--link", "tweetbot:///user_profile/quillmoth"}));
}

TEST_F(LinuxServicesTest, LinkWithoutAHandlerIsRefused) {
    EXPECT_FALSE(device->canOpenURL("twitterrific:"));
    EXPECT_FALSE(device->openURL("http://example.com/a b"));
}

TEST_F(LinuxServicesTest, AccountsAreReadFromTheDevice) {
    writeAccounts(entry("2", "zoe") + entry("1", "amy"));
    Answer<bool> granted;
    device->requestAccountAccess(granted.completion());
    EXPECT_TRUE(granted.get());
    EXPECT_EQ(device->accounts(), (std::vector<Account>{{"2", "zoe"}, {"1", "amy"}}));
    EXPECT_TRUE(problems.empty());
}

TEST_F(LinuxServicesTest, AccountFileThatOthersReadIsAProblem) {
    writeAccounts(entry("1", "amy"), 0644);
    Answer<bool> granted;
    device->requestAccountAccess(granted.completion());
    EXPECT_FALSE(granted.get());
    ASSERT_EQ(problems.size(), 1U);
    EXPECT_EQ(problems[0].path, file());
}

TEST_F(LinuxServicesTest, RequestIsRecordedWithoutItsSecrets) {
    writeAccounts(entry("1", "amy", {"hushKey", "hushSecret", "hushToken", "hushTokenSecret"}));
    Answer<int> status;
    // Only HTTPS is sent.
    device->performRequest({"POST", "http://127.0.0.1:1/x", {{"follow", "FALSE"}}, {"1", "amy"}},
                           status.completion());
    EXPECT_EQ(status.get(), 0);
    const Dictionary details{{"method", "POST"},
                             {"url", "http://127.0.0.1:1/x"},
                             {"parameters", Dictionary{{"follow", "FALSE"}}},
                             {"account", "amy"}};
    EXPECT_EQ(effects, (std::vector<Effect>{{"request", details}}));
    EXPECT_TRUE(problems.empty());
}

TEST_F(LinuxServicesTest, VirtualTimeWaitsForAnswers) {
    writeAccounts(entry("1", "amy"));
    LinuxDevice inVirtualTime(root().hostPath("/"), LinuxDevice::Clock::virtualTime);
    auto& loop = inVirtualTime.runLoop();
    std::optional<RunLoop::Time> answered;
    inVirtualTime.requestAccountAccess([&](bool) {
        for (int i = 0; i < 1000; ++i)
            std::this_thread::yield();
        inVirtualTime.performRequest({"POST", "http://127.0.0.1:1/x", {}, {"1", "amy"}},
                                     [&](int) { loop.perform([&] { answered = loop.now(); }); });
    });
    loop.run(Seconds(5));
    EXPECT_EQ(answered, RunLoop::Time::zero());
}

TEST_F(LinuxServicesTest, FailedOperationIsNotAnEffect) {
    std::filesystem::create_directories(root().hostPath("/var/run"));
    std::ofstream(root().hostPath("/var/run/notify")) << "in the way";
    device->postNotification("a.b");
    device->runTask("/nonexistent", {});
    device->spawn("/nonexistent", {"x"}, {});
    EXPECT_TRUE(effects.empty());
}

TEST_F(LinuxServicesTest, DestructorWaitsForAnswers) {
    writeAccounts(entry("1", "amy"));
    Answer<bool> granted;
    Answer<int> status;
    // The optional counts as empty before its device is destroyed.
    auto& ending = *device;
    device->requestAccountAccess([&](bool answer) {
        ending.performRequest({"POST", "http://127.0.0.1:1/x", {}, {"1", "amy"}}, status.completion());
        granted.completion()(answer);
    });
    device.reset();
    EXPECT_TRUE(granted.isThere());
    EXPECT_TRUE(status.isThere());
}

} // namespace prismo
