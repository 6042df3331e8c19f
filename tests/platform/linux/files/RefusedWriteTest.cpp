#include "tests/platform/linux/files/WriteWorld.h"
#include "tests/platform/plist/MadeFiles.h"
#include "tests/support/Processes.h"

#include <cerrno>
#include <cstring>
#include <sys/resource.h>
#include <unistd.h>

namespace prismo {

namespace {

namespace fs = std::filesystem;
using Kind = Problem::Kind;

class RefusedWriteTest : public WriteTest {};
INSTANTIATE_TEST_SUITE_P(Mode, RefusedWriteTest, bothModes, modeName);

} // namespace

TEST_P(RefusedWriteTest, DirectoryInTheFilesPlaceStays) {
    fs::remove(world.host(path));
    fs::create_directory(world.host(path));
    EXPECT_FALSE(write());
    expectOneProblem(Kind::unwritable, "Is a directory");
    EXPECT_EQ(world.names(directory), onlyTheFile);
}

TEST_P(RefusedWriteTest, FifoInTheFilesPlaceStays) {
    fs::remove(world.host(path));
    ASSERT_EQ(::mkfifo(world.host(path).c_str(), 0600), 0);
    EXPECT_FALSE(write());
    expectOneProblem(Kind::unwritable, "Not a regular file");
    EXPECT_TRUE(fs::is_fifo(world.host(path)));
}

TEST_P(RefusedWriteTest, LinkLoopStays) {
    fs::remove(world.host(path));
    fs::create_symlink("test.plist", world.host(path));
    EXPECT_FALSE(write());
    expectOneProblem(Kind::unwritable, std::strerror(ELOOP));
}

TEST_P(RefusedWriteTest, FileWithoutReadPermissionIsNotReplaced) {
    fs::permissions(world.directory.path(), fs::perms(0755));
    fs::permissions(world.host(directory), fs::perms(0777));
    fs::permissions(world.host(path), fs::perms(0200));
    const auto before = status().st_ino;
    EXPECT_TRUE(asNobody([&] {
        return !write() && world.problems == std::vector{Problem{Kind::unwritable, world.host(path),
                                                                 std::strerror(EACCES)}};
    }));
    EXPECT_EQ(status().st_ino, before);
    EXPECT_EQ(world.names(directory), onlyTheFile);
}

TEST_P(RefusedWriteTest, WithoutPermissionTheOldFileStays) {
    fs::permissions(world.directory.path(), fs::perms(0755));
    const auto before = world.bytes(path);
    EXPECT_TRUE(asNobody([&] {
        if (::getuid() != 65534) fs::permissions(world.host(directory), fs::perms(0555));
        if (::getuid() != 65534) fs::permissions(world.host(path), fs::perms(0444));
        return !write() && world.problems == std::vector{Problem{Kind::unwritable, world.host(path),
                                                                 std::strerror(EACCES)}};
    }));
    fs::permissions(world.host(directory), fs::perms(0755));
    EXPECT_EQ(world.bytes(path), before);
    EXPECT_EQ(world.names(directory), onlyTheFile);
}

TEST_P(RefusedWriteTest, BeyondTheLimitOfFileSizesTheOldFileStays) {
    const auto before = world.bytes(path);
    EXPECT_TRUE(inChild([&] {
        const rlimit limit{4096, 4096};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        return !write({{"long", std::string(20'000, 'x')}}) &&
               world.problems ==
                   std::vector{Problem{Kind::unwritable, world.host(path), std::strerror(EFBIG)}};
    }));
    EXPECT_EQ(world.bytes(path), before);
    EXPECT_EQ(world.names(directory), onlyTheFile);
}

TEST_P(RefusedWriteTest, ValueThatNoFileCanHoldIsAProblem) {
    EXPECT_FALSE(write({{"text", "\xFF"}}));
    expectOneProblem(Kind::unwritable, "text that is not UTF-8, or holds a NUL");
    EXPECT_EQ(world.read(path), oldContent);
}

TEST_P(RefusedWriteTest, FileBeyondTheLimitsStays) {
    const auto key = [](std::size_t i) { return "key" + std::to_string(i); };
    for (const auto& bytes : {plist(keys(60'000, key)), plist(keys(3'000, collidingKey)), sharedChain(10, 10),
                              underKey("<string>" + std::string(9'000'000, 'x') + "</string>")}) {
        world.put(path, bytes);
        world.problems.clear();
        EXPECT_FALSE(write());
        EXPECT_TRUE(isTheOnlyProblem(Kind::unwritable, "More than a property list may hold here"));
        EXPECT_EQ(world.bytes(path), bytes);
        EXPECT_EQ(world.names(directory), onlyTheFile);
    }
}

TEST_P(RefusedWriteTest, FileBeyondTheLimitsThatWasReadFirstStaysToo) {
    world.put(path, underKey("<array>" + repeated("<true/>", 100'000) + "</array>"));
    EXPECT_FALSE(world.read(path));
    expectOneProblem(Kind::unreadable, "More than a property list may hold here");
    EXPECT_FALSE(write());
    EXPECT_EQ(world.names(directory), onlyTheFile);
}

} // namespace prismo
