#include "platform/local/descriptors/PollDriver.h"

#include <array>
#include <atomic>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/time.h>
#include <thread>
#include <unistd.h>

namespace prismo {
namespace {

using namespace std::chrono_literals;

constexpr auto patience = 30s;

struct Pipe {
    UniqueFd readEnd;
    UniqueFd writeEnd;

    Pipe() {
        std::array<int, 2> ends{};
        if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) throw std::runtime_error("no pipe");
        readEnd = UniqueFd(ends[0]);
        writeEnd = UniqueFd(ends[1]);
    }
    void fill() const { ASSERT_EQ(::write(writeEnd.get(), "x", 1), 1); }
    void drain() const {
        char byte = 0;
        ASSERT_EQ(::read(readEnd.get(), &byte, 1), 1);
    }
};

struct PollDriverTest : testing::Test {
    PollDriver driver;
    RunLoop loop{driver};
    Pipe a;
    Pipe b;
    Pipe c;
    std::string calls;

    /// Empties the pipe and adds its name to `calls`.
    void note(const Pipe& pipe, char name) {
        driver.watch(pipe.readEnd.get(), [this, &pipe, name] {
            pipe.drain();
            calls += name;
        });
    }
    void waitOnce() { driver.wait(driver.now()); }
};

TEST_F(PollDriverTest, RunNeverReturnsBeforeItsTimeIsUp) {
    for (int i = 0; i < 200; ++i) {
        const auto end = loop.now() + 123'457ns;
        loop.run(Seconds(123'457e-9));
        ASSERT_GE(loop.now(), end);
    }
}

TEST_F(PollDriverTest, TimerNeverFiresEarly) {
    int fired = 0;
    for (int i = 0; i < 200; ++i) {
        const auto due = loop.now() + std::chrono::nanoseconds(i * 77'777);
        loop.schedule(Seconds(i * 77'777e-9), [&, due] {
            EXPECT_GE(loop.now(), due);
            ++fired;
        });
    }
    loop.runUntil([&] { return fired == 200; });
}

TEST_F(PollDriverTest, WaitForATimeThatHasPassedReturns) { driver.wait(driver.now() - 1h); }

TEST_F(PollDriverTest, SignalsDoNotShortenARun) {
    struct sigaction ignored = {};
    ignored.sa_handler = [](int) {};
    struct sigaction before = {};
    ::sigaction(SIGALRM, &ignored, &before);
    const itimerval often{{0, 500}, {0, 500}};
    ::setitimer(ITIMER_REAL, &often, nullptr);
    const auto end = loop.now() + 30ms;
    loop.run(Seconds(0.030));
    const itimerval never{};
    ::setitimer(ITIMER_REAL, &never, nullptr);
    ::sigaction(SIGALRM, &before, nullptr);
    EXPECT_GE(loop.now(), end);
}

TEST_F(PollDriverTest, WakeUpEndsTheNextWait) {
    const auto deadline = driver.now() + patience;
    driver.wakeUp();
    driver.wait(deadline);
    EXPECT_LT(driver.now(), deadline);
}

TEST_F(PollDriverTest, WakeUpEndsOneWait) {
    driver.wakeUp();
    driver.wakeUp();
    waitOnce();
    const auto deadline = driver.now() + 2ms;
    driver.wait(deadline);
    EXPECT_GE(driver.now(), deadline);
}

TEST_F(PollDriverTest, WakeUpFromAnotherThreadEndsAWait) {
    const auto deadline = driver.now() + patience;
    std::thread other([&] { driver.wakeUp(); });
    driver.wait(deadline);
    other.join();
    EXPECT_LT(driver.now(), deadline);
}

TEST_F(PollDriverTest, BlocksOfEachThreadAreCalledInOrder) {
    constexpr int threads = 4;
    constexpr int blocks = 1000;
    std::array<int, threads> next{};
    int called = 0;
    bool inOrder = true;
    std::vector<std::thread> others;
    for (std::size_t thread = 0; thread < threads; ++thread)
        others.emplace_back([&, thread] {
            for (int i = 0; i < blocks; ++i)
                loop.perform([&, thread, i] {
                    inOrder = inOrder && next.at(thread)++ == i;
                    ++called;
                });
        });
    bool late = false;
    loop.schedule(patience, [&] { late = true; });
    loop.runUntil([&] { return late || called == threads * blocks; });
    for (auto& other : others)
        other.join();
    EXPECT_EQ(called, threads * blocks);
    EXPECT_TRUE(inOrder);
}

TEST(VirtualPollDriver, TimeStopsWhileItIsHeld) {
    PollDriver driver(PollDriver::Clock::virtualTime);
    RunLoop loop(driver);
    std::atomic<bool> isDone = false;
    bool wasDone = false;
    loop.schedule(5s, [&] { wasDone = isDone; });
    std::thread other([&, hold = driver.holdClock()]() mutable {
        for (int i = 0; i < 1000; ++i)
            std::this_thread::yield();
        isDone = true;
        hold.reset();
    });
    loop.run(5s);
    other.join();
    EXPECT_TRUE(wasDone);
    EXPECT_EQ(loop.now(), 5s);
}

TEST_F(PollDriverTest, MonotonicTimeIsNotHeld) { EXPECT_FALSE(driver.holdClock()); }

TEST_F(PollDriverTest, ReadableDescriptorsAreDispatchedInTheOrderOfWatching) {
    note(b, 'b');
    note(a, 'a');
    a.fill();
    b.fill();
    waitOnce();
    EXPECT_EQ(calls, "ba");
}

TEST_F(PollDriverTest, DescriptorAtItsEndIsDispatched) {
    driver.watch(a.readEnd.get(), [&] { calls += 'a'; });
    a.writeEnd.reset();
    waitOnce();
    EXPECT_EQ(calls, "a");
}

TEST_F(PollDriverTest, DescriptorThatWasNotReadIsDispatchedAgain) {
    driver.watch(a.readEnd.get(), [&] { calls += 'a'; });
    a.fill();
    waitOnce();
    waitOnce();
    EXPECT_EQ(calls, "aa");
}

TEST_F(PollDriverTest, LaterWatchTakesThePlaceOfTheEarlierOne) {
    note(a, 'x');
    note(a, 'a');
    a.fill();
    waitOnce();
    EXPECT_EQ(calls, "a");
}

TEST_F(PollDriverTest, CallbackMayEndItsOwnWatch) {
    auto held = std::make_shared<std::string>("held");
    driver.watch(a.readEnd.get(), [this, held] {
        driver.unwatch(a.readEnd.get());
        calls += *held;
    });
    held.reset();
    a.fill();
    waitOnce();
    waitOnce();
    EXPECT_EQ(calls, "held");
}

TEST_F(PollDriverTest, UnwatchedDescriptorIsNotDispatchedEvenIfReady) {
    driver.watch(a.readEnd.get(), [&] {
        a.drain();
        driver.unwatch(b.readEnd.get());
    });
    note(b, 'b');
    a.fill();
    b.fill();
    waitOnce();
    EXPECT_EQ(calls, "");
}

TEST_F(PollDriverTest, DescriptorWatchedAgainIsNotDispatchedForOldEvents) {
    driver.watch(a.readEnd.get(), [&] {
        a.drain();
        b.drain();
        driver.watch(b.readEnd.get(), [&] { calls += 'b'; });
    });
    driver.watch(b.readEnd.get(), [&] { calls += 'x'; });
    a.fill();
    b.fill();
    waitOnce();
    waitOnce();
    EXPECT_EQ(calls, "");
}

TEST_F(PollDriverTest, NestedRunDispatchesTheRestAndNothingIsDispatchedTwice) {
    driver.watch(a.readEnd.get(), [&] {
        a.drain();
        calls += '(';
        loop.run(Seconds(0.002));
        calls += ')';
    });
    note(b, 'b');
    note(c, 'c');
    for (const auto* pipe : {&a, &b, &c})
        pipe->fill();
    waitOnce();
    waitOnce();
    EXPECT_EQ(calls, "(bc)");
}

TEST_F(PollDriverTest, RestAfterACallbackThatThrowsIsDispatchedNext) {
    driver.watch(a.readEnd.get(), [&] {
        a.drain();
        throw std::runtime_error("a");
    });
    note(b, 'b');
    a.fill();
    b.fill();
    EXPECT_THROW(waitOnce(), std::runtime_error);
    waitOnce();
    EXPECT_EQ(calls, "b");
}

} // namespace
} // namespace prismo
