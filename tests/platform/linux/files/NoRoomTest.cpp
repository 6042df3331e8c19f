#include "tests/platform/linux/files/WriteWorld.h"
#include "tests/support/Processes.h"

#include <cerrno>
#include <cstring>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

namespace prismo {

namespace {

namespace fs = std::filesystem;
using Kind = Problem::Kind;

enum class FileSystem { full, readOnly };

/// Runs `body` in a child whose settings directory is a small file system. Returns nullopt if this machine
/// does not allow mounts.
std::optional<bool> onFileSystem(FileSystem kind, FilesWorld& world, const std::function<bool()>& body) {
    const auto mountPoint = world.host(directory);
    const auto mounted = [&] {
        const auto id = std::to_string(::getuid());
        if (::unshare(CLONE_NEWNS) != 0) {
            if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
            std::ofstream("/proc/self/uid_map") << "0 " + id + " 1";
        }
        return ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
               ::mount("tmpfs", mountPoint.c_str(), "tmpfs", 0, "size=64k") == 0;
    };
    if (!inChild(mounted)) return {};
    return inChild([&] {
        if (!mounted()) return false;
        world.put(path, contents(world.directory.path() / "before.plist"));
        if (kind == FileSystem::full) {
            std::ofstream filler(mountPoint / "filler");
            while (filler << std::string(4096, 'x') << std::flush) {
            }
        } else if (::mount(nullptr, mountPoint.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) != 0)
            return false;
        world.root = DeviceRoot::at(world.directory.path()).value(); // the old one does not see the mount
        return body();
    });
}

class NoRoomTest : public WriteTest {};
INSTANTIATE_TEST_SUITE_P(Mode, NoRoomTest, bothModes, modeName);

} // namespace

TEST_P(NoRoomTest, OnAFullDiskTheOldFileStays) {
    fs::copy_file(world.host(path), world.directory.path() / "before.plist");
    const auto before = world.bytes(path);
    const auto result = onFileSystem(FileSystem::full, world, [&] {
        return !write({{"long", std::string(20'000, 'x')}}) && world.bytes(path) == before &&
               world.names(directory) == std::vector<std::string>{"filler", "test.plist"} &&
               world.problems ==
                   std::vector{Problem{Kind::unwritable, world.host(path), std::strerror(ENOSPC)}};
    });
    if (!result) GTEST_SKIP() << "this machine does not allow mounts";
    EXPECT_TRUE(*result);
}

TEST_P(NoRoomTest, OnAFullDiskANewFileLeavesNothing) {
    std::ofstream(world.directory.path() / "before.plist") << "";
    const auto result = onFileSystem(FileSystem::full, world, [&] {
        fs::remove(world.host(path));
        return !write({{"long", std::string(20'000, 'x')}}) &&
               world.names(directory) == std::vector<std::string>{"filler"};
    });
    if (!result) GTEST_SKIP() << "this machine does not allow mounts";
    EXPECT_TRUE(*result);
}

TEST_P(NoRoomTest, OnAReadOnlyFileSystemTheOldFileStays) {
    fs::copy_file(world.host(path), world.directory.path() / "before.plist");
    const auto before = world.bytes(path);
    const auto result = onFileSystem(FileSystem::readOnly, world, [&] {
        return !write() && world.bytes(path) == before && world.names(directory) == onlyTheFile &&
               world.problems ==
                   std::vector{Problem{Kind::unwritable, world.host(path), std::strerror(EROFS)}};
    });
    if (!result) GTEST_SKIP() << "this machine does not allow mounts";
    EXPECT_TRUE(*result);
}

TEST_F(FilesTest, OldBytesThatCannotBeCopiedAreNotOverwritten) {
    world.write(path, oldContent);
    world.problems.clear();
    std::ofstream(world.directory.path() / "before.plist") << std::string(9000, 'x');
    const auto result = onFileSystem(FileSystem::full, world, [&] {
        return !world.write(path, newContent, WriteMode::inPlace) &&
               world.bytes(path) == std::string(9000, 'x') &&
               world.names(directory) == std::vector<std::string>{"filler", "test.plist"};
    });
    if (!result) GTEST_SKIP() << "this machine does not allow mounts";
    EXPECT_TRUE(*result);
}

} // namespace prismo
