#include "platform/memory/MemoryDevice.h"

#include "platform/foundation/EffectLog.h"
#include "platform/foundation/NSObject.h"

#include <cerrno>
#include <gtest/gtest.h>

namespace prismo {
namespace {

using namespace std::chrono_literals;

constexpr const char* path = "/User/Library/Preferences/a.plist";

struct MemoryDeviceTest : testing::Test {
    MemoryDeviceTest() {
        device.setProblemObserver([this](const Problem& problem) { problems.push_back(problem); });
        heard = 0;
    }
    void observe(const char* name) {
        device.systemCenter().addObserver(
            listener, [](const auto&) { ++heard; }, name, SuspensionBehavior::coalesce);
    }
    bool write(const Dictionary& dictionary) {
        return device.writePropertyList(path, dictionary, WriteMode::atomically);
    }

    MemoryDevice device;
    std::vector<Problem> problems;
    std::shared_ptr<NSObject> listener = std::make_shared<NSObject>();
    static inline int heard = 0;
};

TEST_F(MemoryDeviceTest, MissingFileIsNotAProblem) {
    EXPECT_EQ(device.readPropertyList(path), std::nullopt);
    EXPECT_EQ(device.readFile(path), std::nullopt);
    EXPECT_TRUE(problems.empty());
}

TEST_F(MemoryDeviceTest, WrittenDictionaryIsReadBack) {
    const Dictionary dictionary{{"a", 1}, {"b", Array{true, 2.5, "x"}}};
    EXPECT_TRUE(write(dictionary));
    EXPECT_EQ(device.readPropertyList(path), dictionary);
    EXPECT_EQ(device.readPropertyList("/User/Library/Preferences/b.plist"), std::nullopt);
}

TEST_F(MemoryDeviceTest, WritingReplacesTheWholeFile) {
    write({{"a", 1}});
    write({{"b", 2}});
    EXPECT_EQ(device.readPropertyList(path), (Dictionary{{"b", 2}}));
}

TEST_F(MemoryDeviceTest, ValueThatIsNotAPropertyListIsNotWritten) {
    EXPECT_FALSE(write({{"a", NSObject::classObject()}}));
    EXPECT_FALSE(write({{"a", listener}}));
    EXPECT_FALSE(write({{"a", Value()}}));
    EXPECT_FALSE(write({{"a", Array{Dictionary{{"b", Value()}}}}}));
    EXPECT_EQ(device.readPropertyList(path), std::nullopt);
}

TEST_F(MemoryDeviceTest, FileOfAnotherContentIsMalformed) {
    device.setFile(path, {'n', 'o'});
    EXPECT_EQ(device.readPropertyList(path), std::nullopt);
    EXPECT_EQ(problems, (std::vector{Problem{Problem::Kind::malformed, path, "not a property list"}}));
    EXPECT_EQ(device.readFile(path), (Data{'n', 'o'}));
}

TEST_F(MemoryDeviceTest, FailingReadIsAProblemUntilSwitchedOff) {
    write({{"a", 1}});
    device.failReads(path, "Permission denied");
    EXPECT_EQ(device.readPropertyList(path), std::nullopt);
    EXPECT_EQ(problems, (std::vector{Problem{Problem::Kind::unreadable, path, "Permission denied"}}));
    device.failReads(path, "");
    EXPECT_TRUE(device.readPropertyList(path).has_value());
    EXPECT_EQ(problems.size(), 1U);
}

TEST_F(MemoryDeviceTest, FailingReadFailsForBytesToo) {
    device.setFile(path, {'n', 'o'});
    device.failReads(path, "Permission denied");
    EXPECT_EQ(device.readFile(path), std::nullopt);
    EXPECT_EQ(problems, (std::vector{Problem{Problem::Kind::unreadable, path, "Permission denied"}}));
    device.failReads(path, "");
    EXPECT_EQ(device.readFile(path), (Data{'n', 'o'}));
    EXPECT_EQ(problems.size(), 1U);
}

TEST_F(MemoryDeviceTest, FailingWriteIsAProblemAndLeavesTheFile) {
    write({{"a", 1}});
    device.failWrites(path, "No space left on device");
    EXPECT_FALSE(write({{"a", 2}}));
    EXPECT_EQ(device.readPropertyList(path), (Dictionary{{"a", 1}}));
    EXPECT_EQ(problems, (std::vector{Problem{Problem::Kind::unwritable, path, "No space left on device"}}));
    device.failWrites(path, "");
    EXPECT_TRUE(write({{"a", 2}}));
}

TEST_F(MemoryDeviceTest, FailuresOfOneFileLeaveOthersAlone) {
    device.failWrites("/other", "Input/output error");
    device.failReads("/other", "Input/output error");
    EXPECT_TRUE(write({{"a", 1}}));
    EXPECT_TRUE(device.readPropertyList(path).has_value());
}

TEST_F(MemoryDeviceTest, ReadsAreCountedByFileIncludingFailedOnes) {
    EXPECT_EQ(device.propertyListReads(path), 0);
    device.readPropertyList(path);
    device.failReads(path, "Permission denied");
    device.readPropertyList(path);
    device.readPropertyList("/other");
    EXPECT_EQ(device.propertyListReads(path), 2);
}

TEST_F(MemoryDeviceTest, PostIsDeliveredOnALaterTurn) {
    observe("a");
    device.postNotification("a");
    EXPECT_EQ(heard, 0);
    device.runLoop().run(Seconds(0));
    EXPECT_EQ(heard, 1);
}

TEST_F(MemoryDeviceTest, PostsBeforeTheDeliveryCountAsOne) {
    observe("a");
    device.postNotification("a");
    device.postFromOutside("a");
    device.runLoop().run(Seconds(0.001));
    EXPECT_EQ(heard, 1);
    device.postFromOutside("a");
    device.runLoop().run(Seconds(0.001));
    EXPECT_EQ(heard, 2);
}

TEST_F(MemoryDeviceTest, PostOfANameThatNobodyObservesReachesNobody) {
    device.postFromOutside("b");
    observe("b");
    device.postFromOutside("c");
    device.runLoop().run(Seconds(0.001));
    EXPECT_EQ(heard, 0);
}

TEST_F(MemoryDeviceTest, PostFromOutsideIsNotAnEffect) {
    observe("a");
    const EffectLog log(device);
    device.postFromOutside("a");
    device.runLoop().run(Seconds(0.001));
    EXPECT_TRUE(log.effects().empty());
}

TEST_F(MemoryDeviceTest, EffectsComeInTheirOrder) {
    EffectLog log(device);
    write({});
    device.postNotification("a", "what");
    device.runTask("/bin/sh", {"-c", "x"});
    device.spawn("/usr/bin/killall", {"killall", "-9", "x"}, {"A=b"});
    device.recordEffect("reload", {{"name", "Page"}}, "Page::reload");
    EXPECT_EQ(log.take(), (std::vector<Effect>{
                              {"write", {{"path", path}}},
                              {"post", {{"name", "a"}, {"object", "what"}}},
                              {"task", {{"path", "/bin/sh"}, {"argv", Array{"/bin/sh", "-c", "x"}}}},
                              {"spawn",
                               {{"path", "/usr/bin/killall"},
                                {"argv", Array{"killall", "-9", "x"}},
                                {"environment", Array{"A=b"}}}},
                              {"reload", {{"name", "Page"}}},
                          }));
    EXPECT_TRUE(log.effects().empty());
}

TEST_F(MemoryDeviceTest, FailedWriteIsNotAnEffect) {
    const EffectLog log(device);
    device.failWrites(path, "Input/output error");
    write({});
    EXPECT_TRUE(log.effects().empty());
}

TEST_F(MemoryDeviceTest, FailedPostIsNotAnEffect) {
    const EffectLog log(device);
    device.failPosts(true);
    device.postNotification("a");
    EXPECT_TRUE(log.effects().empty());
}

TEST_F(MemoryDeviceTest, FailedTaskIsNotAnEffectAndPrintsNothing) {
    const EffectLog log(device);
    device.setTaskOutput([](const auto&, const auto&) { return "a"; });
    device.failTasks(true);
    EXPECT_EQ(device.runTask("/bin/sh", {}), "");
    EXPECT_TRUE(log.effects().empty());
}

TEST_F(MemoryDeviceTest, FailedSpawnIsNotAnEffect) {
    const EffectLog log(device);
    device.failSpawns(ENOENT);
    device.spawn("/x", {}, {});
    EXPECT_TRUE(log.effects().empty());
}

TEST_F(MemoryDeviceTest, InvalidNotificationNameIsNotPosted) {
    const EffectLog log(device);
    for (const auto& name : {std::string(), std::string("."), std::string(".."), std::string("a/b"),
                             std::string("a\0b", 3), std::string(256, 'a')})
        device.postNotification(name);
    EXPECT_TRUE(log.effects().empty());
    device.postNotification(std::string(255, 'a'));
    EXPECT_EQ(log.effects().size(), 1U);
}

TEST_F(MemoryDeviceTest, TaskPrintsTheGivenOutput) {
    EXPECT_EQ(device.runTask("/bin/sh", {}), "");
    device.setTaskOutput([](const std::string& executable, const std::vector<std::string>& arguments) {
        return executable + ' ' + arguments.at(0);
    });
    EXPECT_EQ(device.runTask("/bin/sh", {"-c"}), "/bin/sh -c");
}

TEST_F(MemoryDeviceTest, SpawnFailsWithTheGivenNumber) {
    EXPECT_EQ(device.spawn("/x", {}, {}), 0);
    device.failSpawns(ENOENT);
    EXPECT_EQ(device.spawn("/x", {}, {}), ENOENT);
    device.failSpawns(0);
    EXPECT_EQ(device.spawn("/x", {}, {}), 0);
}

TEST_F(MemoryDeviceTest, DateAdvancesWithTheRunLoop) {
    const auto date = std::chrono::sys_days(std::chrono::year(2030) / 5 / 6);
    device.runLoop().run(Seconds(10));
    device.setWallClock(date);
    EXPECT_EQ(device.wallClock(), date);
    device.runLoop().run(Seconds(90));
    EXPECT_EQ(device.wallClock(), date + 90s);
}

TEST_F(MemoryDeviceTest, FirstDateIsIn2026) {
    const std::chrono::year_month_day date(std::chrono::floor<std::chrono::days>(device.wallClock()));
    EXPECT_EQ(date.year(), std::chrono::year(2026));
}

TEST_F(MemoryDeviceTest, ApplicationsAreThoseThatWereSetLast) {
    EXPECT_TRUE(device.installedApplications().empty());
    const std::vector<InstalledApplication> applications{{"a", "A", false, ""}, {"b", "B", true, "/b.png"}};
    device.setApplications(applications);
    EXPECT_EQ(device.installedApplications(), applications);
}

struct CopiedDeviceTest : MemoryDeviceTest {
    VirtualTimeDriver driver;
};

TEST_F(CopiedDeviceTest, ReadsTheOriginalUntilItHasWrittenTheFileItself) {
    device.setPropertyList(path, {{"a", 1}});
    device.setFile("/icon.png", {1, 2});
    MemoryDevice copy(&device, driver);
    EXPECT_EQ(copy.readPropertyList(path), (Dictionary{{"a", 1}}));
    EXPECT_EQ(copy.readFile("/icon.png"), (Data{1, 2}));
    copy.writePropertyList(path, {{"a", 2}}, WriteMode::atomically);
    EXPECT_EQ(copy.readPropertyList(path), (Dictionary{{"a", 2}}));
    EXPECT_EQ(device.readPropertyList(path), (Dictionary{{"a", 1}}));
}

TEST_F(CopiedDeviceTest, LeavesTheOriginalAlone) {
    observe("a");
    const EffectLog log(device);
    MemoryDevice copy(&device, driver);
    copy.postNotification("a");
    copy.runTask("/bin/sh", {});
    copy.spawn("/x", {}, {});
    device.runLoop().run(Seconds(0.001));
    EXPECT_EQ(heard, 0);
    EXPECT_TRUE(log.effects().empty());
}

TEST_F(CopiedDeviceTest, HasTheApplicationsAndTheDateOfTheOriginal) {
    device.setApplications({{"a", "A", false, ""}});
    device.setWallClock(std::chrono::sys_days(std::chrono::year(2030) / 5 / 6));
    MemoryDevice copy(&device, driver);
    EXPECT_EQ(copy.installedApplications(), device.installedApplications());
    EXPECT_EQ(copy.wallClock(), device.wallClock());
}

TEST_F(CopiedDeviceTest, ItsTimeIsThatOfItsDriver) {
    MemoryDevice copy(&device, driver);
    copy.runLoop().run(Seconds(1));
    EXPECT_EQ(driver.now(), 1s);
    EXPECT_EQ(device.runLoop().now(), 0s);
}

TEST_F(CopiedDeviceTest, CopyOfNothingIsEmpty) {
    MemoryDevice copy(nullptr, driver);
    EXPECT_EQ(copy.readPropertyList(path), std::nullopt);
    EXPECT_EQ(copy.readFile(path), std::nullopt);
    EXPECT_TRUE(copy.installedApplications().empty());
}

} // namespace
} // namespace prismo
