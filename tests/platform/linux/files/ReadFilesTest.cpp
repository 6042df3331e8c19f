#include "tests/platform/linux/files/WriteWorld.h"
#include "tests/support/Processes.h"

#include <cerrno>
#include <cstring>

namespace prismo {

namespace {

namespace fs = std::filesystem;
using Kind = Problem::Kind;

using ReadFilesTest = FilesTest;

} // namespace

TEST_F(ReadFilesTest, ReadsWhatWasWritten) {
    world.write(path, newContent);
    EXPECT_EQ(world.read(path), newContent);
    EXPECT_TRUE(world.problems.empty());
}

TEST_F(ReadFilesTest, MissingFileIsNotAProblem) {
    world.put("/file", "x");
    for (const char* missing : {"/x.plist", "/no/such/x.plist", "/file/x.plist", ""}) {
        EXPECT_FALSE(world.read(missing)) << missing;
        EXPECT_FALSE(world.readBytes(missing)) << missing;
    }
    EXPECT_TRUE(world.problems.empty());
}

TEST_F(ReadFilesTest, FileWithoutADictionaryIsMalformed) {
    world.put(path, "{ openstep = 1; }");
    EXPECT_FALSE(world.read(path));
    expectOneProblem(Kind::malformed, "No property-list dictionary");
}

TEST_F(ReadFilesTest, HugeFileIsUnreadable) {
    world.put(path, "<plist>");
    fs::resize_file(world.host(path), std::uintmax_t{1} << 40);
    EXPECT_FALSE(world.read(path));
    expectOneProblem(Kind::unreadable, "More than a property list may hold here");
    EXPECT_FALSE(world.readBytes(path));
}

TEST_F(ReadFilesTest, DirectoryIsUnreadable) {
    fs::create_directories(world.host(path));
    EXPECT_FALSE(world.read(path));
    expectOneProblem(Kind::unreadable, "Is a directory");
}

TEST_F(ReadFilesTest, FifoIsUnreadableWithoutBlocking) {
    fs::create_directories(world.host(directory));
    ASSERT_EQ(::mkfifo(world.host(path).c_str(), 0600), 0);
    EXPECT_FALSE(world.readBytes(path));
    expectOneProblem(Kind::unreadable, "Not a regular file");
}

TEST_F(ReadFilesTest, LinkLoopIsUnreadable) {
    fs::create_directories(world.host(directory));
    fs::create_symlink("test.plist", world.host(path));
    EXPECT_FALSE(world.read(path));
    expectOneProblem(Kind::unreadable, std::strerror(ELOOP));
}

TEST_F(ReadFilesTest, FileWithoutPermissionIsUnreadable) {
    world.write(path, newContent);
    fs::permissions(world.directory.path(), fs::perms(0755));
    fs::permissions(world.host(path), fs::perms::none);
    EXPECT_TRUE(asNobody([&] {
        return !world.read(path) && world.problems == std::vector{Problem{Kind::unreadable, world.host(path),
                                                                          std::strerror(EACCES)}};
    }));
}

TEST_F(ReadFilesTest, BytesAreReadUnchanged) {
    world.put("/image", std::string("\0\1\xFF", 3));
    EXPECT_EQ(world.readBytes("/image"), (Data{0, 1, 255}));
}

} // namespace prismo
