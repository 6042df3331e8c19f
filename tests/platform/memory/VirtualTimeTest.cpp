#include "platform/memory/MemoryDevice.h"
#include "platform/memory/VirtualTimeDriver.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace prismo {
namespace {

using namespace std::chrono_literals;

TEST(VirtualTimeTest, StartsAtZeroAndStandsStill) {
    VirtualTimeDriver driver;
    EXPECT_EQ(driver.now(), 0ns);
    EXPECT_EQ(driver.now(), 0ns);
}

TEST(VirtualTimeTest, WaitEndsAtItsDeadline) {
    VirtualTimeDriver driver;
    driver.wait(35ms);
    EXPECT_EQ(driver.now(), 35ms);
}

TEST(VirtualTimeTest, DeadlineThatHasPassedDoesNotTurnTimeBack) {
    VirtualTimeDriver driver;
    driver.wait(35ms);
    driver.wait(10ms);
    EXPECT_EQ(driver.now(), 35ms);
}

TEST(VirtualTimeTest, WokenWaitTakesNoTimeOnce) {
    VirtualTimeDriver driver;
    driver.wakeUp();
    driver.wait(35ms);
    EXPECT_EQ(driver.now(), 0ns);
    driver.wait(35ms);
    EXPECT_EQ(driver.now(), 35ms);
}

TEST(VirtualTimeTest, WaitThatCannotEndThrows) {
    VirtualTimeDriver driver;
    EXPECT_THROW(driver.wait(std::nullopt), std::logic_error);
    driver.wakeUp();
    EXPECT_NO_THROW(driver.wait(std::nullopt));
}

TEST(VirtualTimeTest, RunLoopSkipsADayInTheOrderOfItsTimers) {
    MemoryDevice device;
    std::string calls;
    device.runLoop().schedule(Seconds(7200), [&] { calls += "b"; });
    device.runLoop().schedule(Seconds(3600), [&] { calls += "a"; });
    device.runLoop().schedule(Seconds(86401), [&] { calls += "c"; });
    device.runLoop().run(Seconds(86400));
    EXPECT_EQ(calls, "ab");
    EXPECT_EQ(device.runLoop().now(), 24h);
}

} // namespace
} // namespace prismo
