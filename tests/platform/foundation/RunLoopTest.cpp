#include "platform/foundation/RunLoop.h"
#include "tests/platform/foundation/VirtualDriver.h"

#include <gtest/gtest.h>
#include <string>

namespace prismo {
namespace {

using namespace std::chrono_literals;

struct RunLoopTest : testing::Test {
    VirtualDriver driver;
    RunLoop loop{driver};
    std::string calls;

    std::function<void()> note(std::string text) {
        return [this, text = std::move(text)] { calls += text; };
    }
};

TEST_F(RunLoopTest, RunLastsAsLongAsItIsTold) {
    loop.run(Seconds(0.035));
    EXPECT_EQ(loop.now(), 35ms);
}

TEST_F(RunLoopTest, RunWithNothingToDoForNoTimeReturns) {
    loop.run(Seconds(0));
    EXPECT_EQ(loop.now(), 0ns);
}

TEST_F(RunLoopTest, RunGoesOnAfterAnArrival) {
    driver.arrive(10ms, note("a"));
    driver.arrive(20ms, note("b"));
    loop.run(Seconds(0.035));
    EXPECT_EQ(calls, "ab");
    EXPECT_EQ(loop.now(), 35ms);
}

TEST_F(RunLoopTest, TimerIsCalledAtItsTime) {
    RunLoop::Time called{};
    loop.schedule(Seconds(0.25), [&] { called = loop.now(); });
    loop.run(Seconds(1));
    EXPECT_EQ(called, 250ms);
}

TEST_F(RunLoopTest, TimerIsCalledOnce) {
    loop.schedule(Seconds(0.25), note("a"));
    loop.run(Seconds(1));
    loop.run(Seconds(1));
    EXPECT_EQ(calls, "a");
}

TEST_F(RunLoopTest, TimerDueWhenTheRunEndsIsCalled) {
    loop.schedule(Seconds(1), note("a"));
    loop.run(Seconds(1));
    EXPECT_EQ(calls, "a");
}

TEST_F(RunLoopTest, TimerDueAfterTheRunIsNotCalled) {
    loop.schedule(Seconds(1.000001), note("a"));
    loop.run(Seconds(1));
    EXPECT_EQ(calls, "");
}

TEST_F(RunLoopTest, TimersAreCalledInTheOrderOfTheirDeadlines) {
    loop.schedule(Seconds(0.3), note("c"));
    loop.schedule(Seconds(0.1), note("a"));
    loop.schedule(Seconds(0.2), note("b"));
    loop.run(Seconds(1));
    EXPECT_EQ(calls, "abc");
}

TEST_F(RunLoopTest, TimersOfOneDeadlineAreCalledInTheOrderOfTheirMaking) {
    for (const auto* name : {"a", "b", "c"})
        loop.schedule(Seconds(0.1), note(name));
    loop.run(Seconds(1));
    EXPECT_EQ(calls, "abc");
}

TEST_F(RunLoopTest, NegativeDelayIsDueAtOnce) {
    loop.schedule(Seconds(-5), note("a"));
    loop.callDue();
    EXPECT_EQ(calls, "a");
}

TEST_F(RunLoopTest, DelayBeyondTheClockIsNeverDue) {
    loop.schedule(Seconds(1e300), note("a"));
    loop.run(Seconds(3600));
    EXPECT_EQ(calls, "");
}

TEST_F(RunLoopTest, TimerThatRenewsItselfWithoutDelayDoesNotHoldTheLoop) {
    int count = 0;
    std::function<void()> renew = [&] {
        ++count;
        loop.schedule(Seconds(0), renew);
    };
    loop.schedule(Seconds(0), renew);
    loop.callDue();
    EXPECT_EQ(count, 1);
}

TEST_F(RunLoopTest, TimerThatATimerMakesForLaterInTheRunIsCalledInIt) {
    loop.schedule(Seconds(0.1), [&] { loop.schedule(Seconds(0.1), note("b")); });
    loop.run(Seconds(0.2));
    EXPECT_EQ(calls, "b");
}

TEST_F(RunLoopTest, BlocksAreCalledInTheOrderOfQueueing) {
    for (const auto* name : {"a", "b", "c"})
        loop.perform(note(name));
    loop.callDue();
    EXPECT_EQ(calls, "abc");
}

TEST_F(RunLoopTest, BlockQueuedByABlockIsLeftForTheNextTurn) {
    loop.perform([&] { loop.perform(note("b")); });
    loop.callDue();
    EXPECT_EQ(calls, "");
    loop.callDue();
    EXPECT_EQ(calls, "b");
}

TEST_F(RunLoopTest, QueuedBlockMakesTheLoopDueNow) {
    loop.schedule(Seconds(5), note("late"));
    loop.perform(note("a"));
    EXPECT_EQ(loop.nextDeadline(), loop.now());
}

TEST_F(RunLoopTest, LoopWithNothingToDoHasNoDeadline) { EXPECT_EQ(loop.nextDeadline(), std::nullopt); }

TEST_F(RunLoopTest, DeadlineIsTheEarliestTimers) {
    loop.schedule(Seconds(5), note("late"));
    loop.schedule(Seconds(2), note("early"));
    EXPECT_EQ(loop.nextDeadline(), 2s);
}

TEST_F(RunLoopTest, DriverHearsOfAnEarlierTimer) {
    const int before = driver.deadlineChanges();
    loop.schedule(Seconds(2), note("a"));
    EXPECT_GT(driver.deadlineChanges(), before);
}

TEST_F(RunLoopTest, NestedRunCallsWhatTheOuterOneWould) {
    loop.schedule(Seconds(0.01), note("timer "));
    loop.perform([&] {
        loop.run(Seconds(0.035));
        calls += "end";
    });
    loop.perform(note("block "));
    loop.run(Seconds(1));
    EXPECT_EQ(calls, "block timer end");
}

TEST_F(RunLoopTest, TimersThatFallDueTogetherAreEachCalledOnceAroundANestedRun) {
    loop.schedule(Seconds(0.1), [&] {
        calls += "(";
        loop.run(Seconds(0.035));
        calls += ")";
    });
    loop.schedule(Seconds(0.1), note("b"));
    loop.schedule(Seconds(0.1), note("c"));
    loop.run(Seconds(1));
    EXPECT_EQ(calls, "(bc)");
}

TEST_F(RunLoopTest, NestedRunLastsAsLongAsItIsTold) {
    RunLoop::Time ended{};
    loop.schedule(Seconds(0.1), [&] {
        loop.run(Seconds(0.035));
        ended = loop.now();
    });
    loop.run(Seconds(0.11));
    EXPECT_EQ(ended, 135ms);
}

TEST_F(RunLoopTest, RunUntilEndsWithTheTimerThatFinishes) {
    bool finished = false;
    loop.schedule(Seconds(0.1), [&] { finished = true; });
    loop.schedule(Seconds(0.2), note("late"));
    loop.runUntil([&] { return finished; });
    EXPECT_EQ(loop.now(), 100ms);
}

TEST_F(RunLoopTest, RunUntilEndsWithTheBlockThatFinishes) {
    bool finished = false;
    loop.perform([&] { finished = true; });
    EXPECT_NO_THROW(loop.runUntil([&] { return finished; }));
}

TEST_F(RunLoopTest, RunUntilEndsWithTheArrivalThatFinishes) {
    bool finished = false;
    driver.arrive(10ms, [&] { finished = true; });
    loop.runUntil([&] { return finished; });
    EXPECT_EQ(loop.now(), 10ms);
}

TEST_F(RunLoopTest, RunUntilWhatIsFinishedAlreadyCallsNothing) {
    loop.perform(note("a"));
    loop.runUntil([] { return true; });
    EXPECT_EQ(calls, "");
}

TEST_F(RunLoopTest, TurnWithADeadlineThatHasPassedCallsWhatIsDue) {
    loop.perform(note("a"));
    loop.turn(loop.now());
    EXPECT_EQ(calls, "a");
}

TEST_F(RunLoopTest, BlockThatThrowsIsNotCalledAgain) {
    loop.perform([&] {
        calls += "a";
        throw std::runtime_error("a");
    });
    loop.perform(note("b"));
    EXPECT_THROW(loop.callDue(), std::runtime_error);
    loop.callDue();
    EXPECT_EQ(calls, "ab");
}

} // namespace
} // namespace prismo
