#include "platform/linux/notifications/NotifyDirectory.h"
#include "tests/platform/linux/notifications/Listener.h"
#include "tests/support/Directories.h"

#include <cstdio>
#include <gtest/gtest.h>

namespace prismo {
namespace {

struct NotifyProcessesTest : testing::Test {
    TemporaryDirectory temporary;
    std::filesystem::path path = temporary.path() / "notify";
    NotifyDirectory poster{path, opener(path)};
};

TEST_F(NotifyProcessesTest, PostReachesAnotherProcess) {
    Listener listener(path, {"changed"});
    poster.post("changed");
    EXPECT_EQ(listener.line(), "changed ");
}

TEST_F(NotifyProcessesTest, PostReachesEveryProcess) {
    Listener first(path, {"changed"});
    Listener second(path, {"changed"});
    poster.post("changed");
    EXPECT_EQ(first.line(), "changed ");
    EXPECT_EQ(second.line(), "changed ");
}

TEST_F(NotifyProcessesTest, StoppedProcessGetsManyPostsAsOne) {
    Listener listener(path, {"changed", "end"});
    listener.stop();
    for (int i = 0; i < 10'000; ++i)
        poster.post("changed");
    poster.post("end");
    listener.goOn();
    EXPECT_EQ(listener.line(), "changed ");
    EXPECT_EQ(listener.line(), "end ");
}

TEST_F(NotifyProcessesTest, RunningProcessNeverMissesTheLastState) {
    const auto stateFile = temporary.path() / "state";
    const UniqueFd state(::open(stateFile.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
    Listener listener(path, {"changed"}, stateFile);
    constexpr int posts = 100'000;
    const auto line = [](int count) {
        std::array<char, 16> text{};
        std::snprintf(text.data(), text.size(), "%08d", count);
        return std::string(text.data());
    };
    for (int i = 1; i <= posts; ++i) {
        ASSERT_EQ(::pwrite(state.get(), line(i).data(), 8, 0), 8);
        ASSERT_TRUE(poster.post("changed"));
    }
    // `line` throws if the listener stops before it has seen the last state.
    const auto last = "changed " + line(posts);
    int deliveries = 1;
    while (listener.line() != last)
        ++deliveries;
    EXPECT_LE(deliveries, posts);
}

TEST_F(NotifyProcessesTest, OverflowOfTheQueueCountsAsAPostOfEveryName) {
    int limit = 0;
    std::ifstream("/proc/sys/fs/inotify/max_queued_events") >> limit;
    ASSERT_GT(limit, 0);
    Listener listener(path, {"a", "b", "quiet"});
    listener.stop();
    for (int i = 0; i <= limit / 2; ++i)
        for (const auto* name : {"a", "b"})
            poster.post(name);
    listener.goOn();
    EXPECT_EQ(listener.line(), "a ");
    EXPECT_EQ(listener.line(), "b ");
    EXPECT_EQ(listener.line(), "quiet ");
    poster.post("b");
    EXPECT_EQ(listener.line(), "b ");
}

TEST_F(NotifyProcessesTest, ReplacedDirectoryLosesNoPost) {
    Listener listener(path, {"changed"});
    std::filesystem::remove_all(path);
    EXPECT_EQ(listener.line(), "changed ");
    poster.post("changed");
    EXPECT_EQ(listener.line(), "changed ");
}

} // namespace
} // namespace prismo
