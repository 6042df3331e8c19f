#include "settings/window/QtDriver.h"

#include <gtest/gtest.h>
#include <QCoreApplication>
#include <QEventLoop>
#include <string>
#include <thread>
#include <unistd.h>

namespace prismo::settings {
namespace {

struct QtDriverTest : testing::Test {
    QtDriverTest() { driver.drive(&loop); }
    ~QtDriverTest() override { driver.drive(nullptr); }

    QtDriver driver;
    RunLoop loop{driver};
};

/// A pipe that is written and read one byte at a time.
struct Pipe {
    Pipe() { EXPECT_EQ(::pipe(ends), 0); }
    ~Pipe() {
        ::close(ends[0]);
        ::close(ends[1]);
    }
    void write() { EXPECT_EQ(::write(ends[1], "x", 1), 1); }
    void read() {
        char byte = 0;
        EXPECT_EQ(::read(ends[0], &byte, 1), 1);
    }
    int ends[2]{};
};

TEST_F(QtDriverTest, TimerFiresInTheQtEventLoop) {
    QEventLoop events;
    bool isCalled = false;
    loop.schedule(Seconds(0.002), [&] {
        isCalled = true;
        events.quit();
    });
    events.exec();
    EXPECT_TRUE(isCalled);
}

TEST_F(QtDriverTest, TimersFireInDeadlineOrder) {
    QEventLoop events;
    std::string order;
    loop.schedule(Seconds(0.004), [&] { order += "b"; });
    loop.schedule(Seconds(0.002), [&] { order += "a"; });
    loop.schedule(Seconds(0.006), [&] { events.quit(); });
    events.exec();
    EXPECT_EQ(order, "ab");
}

TEST_F(QtDriverTest, NestedRunLastsItsFullTimeAndHandlesQtEvents) {
    bool isHandled = false;
    QMetaObject::invokeMethod(
        &driver, [&] { isHandled = true; }, Qt::QueuedConnection);
    const auto start = loop.now();
    loop.run(Seconds(0.01));
    EXPECT_TRUE(isHandled);
    EXPECT_GE(loop.now() - start, std::chrono::milliseconds(10));
}

TEST_F(QtDriverTest, RunInsideAQtEventFiresDueTimers) {
    QEventLoop events;
    bool isCalled = false;
    loop.schedule(Seconds(0.002), [&] { isCalled = true; });
    bool wasCalledInside = false;
    QMetaObject::invokeMethod(
        &driver,
        [&] {
            loop.run(Seconds(0.01));
            wasCalledInside = isCalled;
            events.quit();
        },
        Qt::QueuedConnection);
    events.exec();
    EXPECT_TRUE(wasCalledInside);
}

TEST_F(QtDriverTest, BlockFromAnotherThreadRunsOnTheLoopThread) {
    QEventLoop events;
    std::thread::id calledOn;
    std::thread other([&] {
        loop.perform([&] {
            calledOn = std::this_thread::get_id();
            events.quit();
        });
    });
    events.exec();
    other.join();
    EXPECT_EQ(calledOn, std::this_thread::get_id());
}

TEST_F(QtDriverTest, DescriptorIsReadInTheQtEventLoopAndInANestedRun) {
    Pipe pipe;
    int reads = 0;
    QEventLoop events;
    driver.watch(pipe.ends[0], [&] {
        pipe.read();
        ++reads;
        events.quit();
    });
    pipe.write();
    events.exec();
    EXPECT_EQ(reads, 1);
    pipe.write();
    loop.runUntil([&] { return reads == 2; });
    EXPECT_EQ(reads, 2);
}

TEST_F(QtDriverTest, UnwatchedDescriptorStopsCalling) {
    Pipe pipe;
    int calls = 0;
    driver.watch(pipe.ends[0], [&] {
        ++calls;
        driver.unwatch(pipe.ends[0]);
    });
    pipe.write();
    loop.run(Seconds(0.005));
    EXPECT_EQ(calls, 1);
}

TEST_F(QtDriverTest, UnwatchedDescriptorIsNotDispatchedEvenIfItWasReady) {
    Pipe first;
    Pipe second;
    int calls = 0;
    // The first one dispatched unwatches the other.
    driver.watch(first.ends[0], [&] {
        ++calls;
        driver.unwatch(first.ends[0]);
        driver.unwatch(second.ends[0]);
    });
    driver.watch(second.ends[0], [&] {
        ++calls;
        driver.unwatch(first.ends[0]);
        driver.unwatch(second.ends[0]);
    });
    first.write();
    second.write();
    loop.run(Seconds(0.005));
    EXPECT_EQ(calls, 1);
}

} // namespace
} // namespace prismo::settings
