// The notification directory is removed, moved or replaced while it is observed.

#include "tests/platform/linux/notifications/NotifyWorld.h"

#include <cerrno>
#include <cstring>
#include <poll.h>

namespace prismo {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

using NotifyReplacedDirectoryTest = NotifyWorld;

TEST_F(NotifyReplacedDirectoryTest, DirectoryRemovedCountsAsAPostOfEveryName) {
    for (const auto* name : {"a", "b"})
        observer.observe(name);
    fs::remove_all(path);
    EXPECT_EQ(delivered(), (Names{"a", "b"}));
}

TEST_F(NotifyReplacedDirectoryTest, PostsAfterTheDirectoryWasRemovedAreDelivered) {
    observer.observe("changed");
    fs::remove_all(path);
    delivered();
    EXPECT_EQ(delivered(), Names{});
    poster.post("changed");
    EXPECT_EQ(delivered(), Names{"changed"});
}

TEST_F(NotifyReplacedDirectoryTest, DirectoryMovedAwayCountsAsAPostAndANewOneTakesItsPlace) {
    observer.observe("changed");
    fs::rename(path, temporary.path() / "elsewhere");
    EXPECT_EQ(delivered(), Names{"changed"});
    poster.post("changed");
    EXPECT_EQ(delivered(), Names{"changed"});
}

TEST_F(NotifyReplacedDirectoryTest, DirectoryMovedAwayIsNoLongerListenedTo) {
    observer.observe("changed");
    fs::rename(path, temporary.path() / "elsewhere");
    delivered();
    delivered(); // the event that the old watch has ended
    const auto elsewhere = temporary.path() / "elsewhere";
    NotifyDirectory(elsewhere, opener(elsewhere)).post("changed");
    pollfd ready{observer.descriptor(), POLLIN, 0};
    EXPECT_EQ(::poll(&ready, 1, 0), 0);
}

TEST_F(NotifyReplacedDirectoryTest, DirectoryRemovedDuringAPostIsMadeAgainByIt) {
    observer.observe("changed");
    int opened = 0;
    NotifyDirectory unlucky(path, [&] {
        auto directory = opener(path)();
        if (opened++ == 0) fs::remove_all(path);
        return directory;
    });
    EXPECT_TRUE(unlucky.post("changed"));
    EXPECT_EQ(delivered(), Names{"changed"});
}

TEST_F(NotifyReplacedDirectoryTest, RemovedDirectoryThatIsHeldOpenIsReplacedByTheNextPost) {
    observer.observe("changed");
    const auto held = opener(path)();
    fs::remove_all(path);
    poster.post("changed");
    EXPECT_EQ(delivered(), Names{"changed"});
    poster.post("changed");
    EXPECT_EQ(delivered(), Names{"changed"});
}

TEST_F(NotifyReplacedDirectoryTest, ParentMovedAwayCountsAsAPost) {
    observer.observe("changed");
    fs::rename(path.parent_path(), temporary.path() / "elsewhere");
    fs::create_directory(path.parent_path());
    EXPECT_EQ(delivered(), Names{"changed"});
    poster.post("changed");
    EXPECT_EQ(delivered(), Names{"changed"});
}

TEST_F(NotifyReplacedDirectoryTest, AnotherDirectoryInTheParentIsNoPost) {
    observer.observe("changed");
    fs::create_directory(path.parent_path() / "other");
    EXPECT_EQ(delivered(), Names{});
}

TEST_F(NotifyReplacedDirectoryTest, DirectoryThatCannotBeMadeAgainIsAProblemUntilTheNextObservation) {
    observer.observe("changed");
    fs::remove_all(path.parent_path());
    Names names;
    const auto read = observer.read([&](const std::string& name) { names.push_back(name); });
    ASSERT_FALSE(read);
    EXPECT_EQ(read.problem(), (Problem{Problem::Kind::notObserved, path, std::strerror(ENOENT)}));
    EXPECT_EQ(names, Names{"changed"});
    fs::create_directory(path.parent_path());
    EXPECT_TRUE(observer.observe("changed"));
    poster.post("changed");
    EXPECT_EQ(delivered(), Names{"changed"});
}

} // namespace
} // namespace prismo
