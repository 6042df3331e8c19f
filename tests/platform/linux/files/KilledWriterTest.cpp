#include "tests/platform/linux/files/Writers.h"
#include "tests/platform/linux/files/WriteWorld.h"

#include <chrono>
#include <csignal>
#include <random>
#include <set>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace prismo {

namespace {

// A sanitized process takes fifty times as long to start.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr int times = 100;
#else
constexpr int times = 1000;
#endif

} // namespace

TEST(KilledWriter, AtRandomTimesTheFileIsWhole) {
    FilesWorld world;
    std::mt19937 random(20261121);
    std::set<std::int64_t> seen;
    for (int i = 1; i <= times; ++i) {
        const auto running = startWriter(world, i * 1000, 1000);
        // It is writing once it has printed its first line.
        char line = 0;
        ASSERT_EQ(::read(running.output.get(), &line, 1), 1);
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 3000));
        ::kill(running.process, SIGKILL);
        ::waitpid(running.process, nullptr, 0);
        const auto found = numberIn(world);
        ASSERT_TRUE(found >= i * 1000 && found < i * 1000 + 1000) << i << ": " << found;
        seen.insert(found % 1000);
    }
    // Vary the write that is interrupted.
    EXPECT_GT(seen.size(), 1U);
    ASSERT_TRUE(world.write(path, newContent));
    EXPECT_EQ(world.names(directory), onlyTheFile);
}

TEST(KilledWriter, EightWritersAtOnceLeaveTheFileOfOne) {
    FilesWorld world;
    std::vector<Writer> writers;
    for (int i = 0; i < 8; ++i)
        writers.push_back(startWriter(world, i * 100, 25));
    for (const auto& running : writers) {
        int status = -1;
        ::waitpid(running.process, &status, 0);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(numberIn(world) % 100, 24);
    EXPECT_EQ(world.names(directory), onlyTheFile);
}

} // namespace prismo
