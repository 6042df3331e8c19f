#include "platform/local/desktop/DesktopServices.h"
#include "platform/local/installation/ServiceLibrary.h"
#include "tests/platform/local/desktop/DesktopWorld.h"

#include <algorithm>
#include <csignal>
#include <gtest/gtest.h>
#include <optional>
#include <thread>

namespace prismo {

namespace {

class DesktopTest : public testing::Test {
  protected:
    DesktopServices& desktop() {
        auto* service = library.service();
        if (!service) throw std::runtime_error("the desktop's library is not there");
        return *service;
    }
    std::optional<InstalledApplication> application(const std::string& id) {
        const auto all = desktop().applications();
        const auto found = std::ranges::find(all, id, &InstalledApplication::displayIdentifier);
        if (found == all.end()) return {};
        return *found;
    }
    std::vector<std::string> identifiers() {
        std::vector<std::string> result;
        for (const auto& found : desktop().applications())
            result.push_back(found.displayIdentifier);
        std::ranges::sort(result);
        return result;
    }

    DesktopWorld& world = DesktopWorld::shared();
    ServiceLibrary<DesktopServices> library{[](const Problem&) {}};
};

using Texts = std::vector<std::string>;

} // namespace

TEST_F(DesktopTest, LinksOfARegisteredSchemeCanBeOpened) {
    EXPECT_TRUE(desktop().canOpen("tweetbot:"));
    EXPECT_TRUE(desktop().canOpen("tweetbot:///user_profile/quillmoth"));
    EXPECT_TRUE(desktop().canOpen("TweetBot:"));
}

TEST_F(DesktopTest, LinksOfOtherSchemesCannotBeOpened) {
    for (const auto* url : {"twitterrific:", "http://example.com/", "mailto:a@example.com",
                            "tweetbot2:", "file:///etc/hostname"}) {
        EXPECT_FALSE(desktop().canOpen(url)) << url;
        EXPECT_FALSE(desktop().open(url)) << url;
    }
}

TEST_F(DesktopTest, HandlerIsGivenTheLinkAsOneArgument) {
    const std::string url = "tweetbot:///user_profile/a;b&c=$(d)'*!%20?#[e]";
    ASSERT_TRUE(desktop().open(url));
    EXPECT_EQ(world.start().arguments, (Texts{"--link", url}));
}

TEST_F(DesktopTest, LinkInsideOfAnArgumentStaysThere) {
    const std::string url = "embedded:;'$(e)&--other";
    ASSERT_TRUE(desktop().open(url));
    EXPECT_EQ(world.start().arguments, (Texts{"--link=" + url, "--last"}));
}

TEST_F(DesktopTest, HandlerHoldsNoStreamOfThisProcess) {
    ASSERT_TRUE(desktop().open("tweetbot:"));
    EXPECT_EQ(world.start().streams, (Texts{"/dev/null", "/dev/null", "/dev/null"}));
}

TEST_F(DesktopTest, HandlerAcceptsSignalsThatTheOpeningThreadBlocks) {
    bool opened = false;
    std::thread([&] {
        sigset_t all;
        ::sigfillset(&all);
        ::pthread_sigmask(SIG_SETMASK, &all, nullptr);
        opened = desktop().open("tweetbot:");
    }).join();
    ASSERT_TRUE(opened);
    EXPECT_EQ(world.start().heldOffSignals, "0000000000000000");
}

TEST_F(DesktopTest, InvalidLinkIsNotOpened) {
    const Texts urls{"",
                     ":",
                     "tweetbot",
                     "//tweetbot:",
                     "-tweetbot:",
                     "--help",
                     " tweetbot:",
                     "tweetbot:a b",
                     "tweetbot:a\nb",
                     std::string("tweetbot:a\0b", 12),
                     "tweetbot:\x7f",
                     "tweetbot:\xff",
                     "tweetbot:\"",
                     "tweetbot:%",
                     "tweetbot:%2",
                     "tweetbot:%zz",
                     "tweetbot:ü",
                     "../tweetbot:",
                     "tweetbot:" + std::string(65'528, 'a'),
                     "tweetbot:" + std::string(1'000'000, 'a'),
                     std::string(1'000'000, 'a') + ":"};
    for (const auto& url : urls) {
        EXPECT_FALSE(desktop().canOpen(url)) << url.substr(0, 100);
        EXPECT_FALSE(desktop().open(url)) << url.substr(0, 100);
    }
}

TEST_F(DesktopTest, LongLinkIsOpened) {
    const auto url = "tweetbot:" + std::string(65'527, 'a');
    ASSERT_TRUE(desktop().open(url));
    EXPECT_EQ(world.start().arguments, (Texts{"--link", url}));
}

TEST_F(DesktopTest, HandlerThatTakesNoLinksIsIgnored) {
    EXPECT_FALSE(desktop().canOpen("files:a"));
    EXPECT_FALSE(desktop().open("files:a"));
}

TEST_F(DesktopTest, HandlerWithoutAProgramIsIgnored) {
    EXPECT_FALSE(desktop().canOpen("broken:a"));
    EXPECT_FALSE(desktop().open("broken:a"));
}

TEST_F(DesktopTest, ApplicationsAreThoseOfTheMenu) {
    EXPECT_EQ(identifiers(), (Texts{"absolute", "climber", "con\x01trol", "flat", "org.example.system",
                                    "overridden", "own", "pretender", "vector"}));
}

TEST_F(DesktopTest, ApplicationOfTheUserIsNotTheSystems) {
    EXPECT_EQ(application("own"), (InstalledApplication{"own", "Own", false, ""}));
    EXPECT_EQ(application("overridden"), (InstalledApplication{"overridden", "Overriding", false, ""}));
}

TEST_F(DesktopTest, ApplicationOfADataDirectoryIsTheSystems) {
    EXPECT_EQ(application("org.example.system"),
              (InstalledApplication{"org.example.system", "System", true,
                                    world.systemData() / "icons/hicolor/64x64/apps/themed.png"}));
}

TEST_F(DesktopTest, IconIsAPngFileOrNothing) {
    EXPECT_EQ(application("absolute").value().iconPath, world.systemData() / "absolute.png");
    EXPECT_EQ(application("flat").value().iconPath, world.systemData() / "pixmaps/flat.png");
    for (const auto* id : {"vector", "pretender", "climber"})
        EXPECT_EQ(application(id).value().iconPath, "") << id;
}

TEST_F(DesktopTest, LinksAreOpenedFromAllThreads) {
    constexpr std::size_t count = 4;
    std::vector<std::thread> threads;
    threads.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        threads.emplace_back([&] { EXPECT_TRUE(desktop().canOpen("tweetbot:")); });
    for (auto& thread : threads)
        thread.join();
}

} // namespace prismo
