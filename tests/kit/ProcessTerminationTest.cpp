#include "kit/FBKillProcess.h"
#include "tests/support/MemoryWorld.h"

#include <cerrno>

namespace prismo {
namespace {

struct ProcessTerminationTest : MemoryWorld {
    /// The argument lists of the started children, in order.
    std::vector<Array> arguments() {
        std::vector<Array> found;
        for (const auto& effect : effectsOfKind("spawn"))
            found.push_back(*effect.details.at("argv").as<Array>());
        return found;
    }
};

TEST_F(ProcessTerminationTest, StartsTheSystemToolWithoutAnEnvironment) {
    FBKillProcess("9", "backboardd");
    ASSERT_EQ(effects.size(), 1U);
    EXPECT_EQ(effects[0].effect, (Effect{"spawn",
                                         {{"path", "/usr/bin/killall"},
                                          {"argv", Array{"killall", "-9", "backboardd"}},
                                          {"environment", Array{}}}}));
}

TEST_F(ProcessTerminationTest, DefaultSignalIsNine) {
    FBKillProcess(std::nullopt, "backboardd");
    EXPECT_EQ(arguments(), (std::vector<Array>{{"killall", "-9", "backboardd"}}));
}

TEST_F(ProcessTerminationTest, SignalIsPassedWithOnlyADashInFront) {
    FBKillProcess("15", "x");
    FBKillProcess("TERM", "x");
    FBKillProcess("-l %@", "x");
    EXPECT_EQ(
        arguments(),
        (std::vector<Array>{{"killall", "-15", "x"}, {"killall", "-TERM", "x"}, {"killall", "--l %@", "x"}}));
}

TEST_F(ProcessTerminationTest, EmptySignalStaysEmpty) {
    FBKillProcess("", "x");
    EXPECT_EQ(arguments(), (std::vector<Array>{{"killall", "-", "x"}}));
}

TEST_F(ProcessTerminationTest, WithoutANameTheArgumentsEndAfterTheSignal) {
    FBKillProcess("9", std::nullopt);
    EXPECT_EQ(arguments(), (std::vector<Array>{{"killall", "-9"}}));
}

TEST_F(ProcessTerminationTest, EmptyNameIsAnArgument) {
    FBKillProcess("9", "");
    EXPECT_EQ(arguments(), (std::vector<Array>{{"killall", "-9", ""}}));
}

TEST_F(ProcessTerminationTest, NameIsPassedVerbatimAsOneArgument) {
    FBKillProcess("9", "a b; rm -rf \"$HOME\" 'ü'");
    EXPECT_EQ(arguments(), (std::vector<Array>{{"killall", "-9", "a b; rm -rf \"$HOME\" 'ü'"}}));
}

TEST_F(ProcessTerminationTest, ResultIsZeroIfTheToolStarted) { EXPECT_EQ(FBKillProcess("9", "nobody"), 0); }

TEST_F(ProcessTerminationTest, ResultIsTheErrorFromStartingTheTool) {
    device.failSpawns(ENOENT);
    EXPECT_EQ(FBKillProcess("9", "x"), ENOENT);
    device.failSpawns(EACCES);
    EXPECT_EQ(FBKillProcess("9", "x"), EACCES);
}

TEST_F(ProcessTerminationTest, ReturnsAtOnceAndSchedulesNothing) {
    FBKillProcess("9", "x");
    EXPECT_EQ(now().count(), 0);
    EXPECT_EQ(device.runLoop().nextDeadline(), std::nullopt);
}

TEST_F(ProcessTerminationTest, EveryCallStartsItsOwnChild) {
    FBKillProcess("9", "x");
    FBKillProcess("9", "x");
    EXPECT_EQ(arguments().size(), 2U);
}

} // namespace
} // namespace prismo
