// The files of the names: who makes them, and what else may be in their place.

#include "tests/platform/linux/notifications/NotifyWorld.h"
#include "tests/support/Processes.h"

#include <sys/stat.h>

namespace prismo {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

using NotifyFilesTest = NotifyWorld;

TEST_F(NotifyFilesTest, FileRemovedBetweenPostsChangesNothing) {
    observer.observe("changed");
    poster.post("changed");
    delivered();
    fs::remove(path / "changed");
    poster.post("changed");
    EXPECT_EQ(delivered(), Names{"changed"});
}

TEST_F(NotifyFilesTest, FifoUnderTheNameNeitherBlocksNorSilencesThePost) {
    observer.observe("changed");
    fs::remove(path / "changed");
    ASSERT_EQ(::mkfifo((path / "changed").c_str(), 0600), 0);
    EXPECT_TRUE(poster.post("changed"));
    EXPECT_EQ(delivered(), Names{"changed"});
}

TEST_F(NotifyFilesTest, LinkUnderTheNameIsNotFollowed) {
    observer.observe("changed");
    const auto target = temporary.path() / "target";
    std::ofstream(target) << "kept";
    const fs::file_time_type longAgo{};
    fs::last_write_time(target, longAgo);
    fs::remove(path / "changed");
    fs::create_symlink(target, path / "changed");
    EXPECT_TRUE(poster.post("changed"));
    EXPECT_EQ(delivered(), Names{"changed"});
    EXPECT_EQ(fs::last_write_time(target), longAgo);
}

TEST_F(NotifyFilesTest, DanglingLinkMakesNoFileElsewhere) {
    observer.observe("changed");
    fs::remove(path / "changed");
    fs::create_symlink(temporary.path() / "target", path / "changed");
    poster.post("changed");
    EXPECT_FALSE(fs::exists(temporary.path() / "target"));
}

TEST_F(NotifyFilesTest, FilesArePrivate) {
    poster.post("changed");
    EXPECT_EQ(fs::status(path / "changed").permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(NotifyFilesTest, InvalidNameIsRefused) {
    for (const auto& name : {std::string(), std::string("."), std::string(".."), std::string("a/b"),
                             std::string("/etc"), std::string("a\0b", 3), std::string(256, 'a')}) {
        const auto posted = poster.post(name);
        ASSERT_FALSE(posted) << name;
        EXPECT_EQ(posted.problem(), (Problem{Problem::Kind::notPosted, path.string(),
                                             "'" + name + "' is not a notification name"}));
        const auto observed = observer.observe(name);
        ASSERT_FALSE(observed) << name;
        EXPECT_EQ(observed.problem(), posted.problem().as(Problem::Kind::notObserved));
    }
    EXPECT_FALSE(fs::exists(path));
    EXPECT_LT(observer.descriptor(), 0);
}

TEST_F(NotifyFilesTest, LongestNameIsDelivered) {
    const std::string name(255, 'a');
    observer.observe(name);
    EXPECT_TRUE(poster.post(name));
    EXPECT_EQ(delivered(), Names{name});
}

TEST_F(NotifyFilesTest, FileThatAnObserverMakesIsPrivate) {
    observer.observe("first");
    observer.observe("second");
    for (const auto* name : {"first", "second"})
        EXPECT_EQ(fs::status(path / name).permissions(), fs::perms::owner_read | fs::perms::owner_write)
            << name;
}

TEST_F(NotifyFilesTest, FileThatAnObserverMakesIsNoPost) {
    observer.observe("changed");
    fs::remove(path / "changed");
    poster.observe("changed");
    EXPECT_TRUE(fs::exists(path / "changed"));
    EXPECT_EQ(delivered(), Names{});
}

TEST_F(NotifyFilesTest, ObservationAskedAgainLeavesTheFileAsItIs) {
    poster.post("changed");
    const fs::file_time_type longAgo{};
    fs::last_write_time(path / "changed", longAgo);
    observer.observe("changed");
    EXPECT_EQ(fs::last_write_time(path / "changed"), longAgo);
}

TEST_F(NotifyFilesTest, FileThatCannotBeMadeIsObservedAnyway) {
    fs::create_directory(path);
    fs::permissions(temporary.path(), fs::perms(0755));
    fs::permissions(path, fs::perms(0555));
    EXPECT_TRUE(asNobody([&] { return observer.observe("changed") && observer.observe("other"); }));
    EXPECT_TRUE(fs::is_empty(path));
    fs::permissions(path, fs::perms(0755));
}

} // namespace
} // namespace prismo
