#include "platform/linux/files/TemporaryFile.h"
#include "tests/platform/linux/files/WriteWorld.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace prismo {

namespace {

namespace fs = std::filesystem;
using Kind = Problem::Kind;

class WrittenFileTest : public WriteTest {};
INSTANTIATE_TEST_SUITE_P(Mode, WrittenFileTest, bothModes, modeName);

} // namespace

TEST_P(WrittenFileTest, FileIsReplaced) {
    EXPECT_TRUE(write());
    EXPECT_EQ(world.read(path), newContent);
    EXPECT_EQ(world.names(directory), onlyTheFile);
    EXPECT_TRUE(world.problems.empty());
}

TEST_P(WrittenFileTest, ShorterFileHasNoLeftoverBytes) {
    world.write(path, {{"long", std::string(100'000, 'x')}});
    EXPECT_TRUE(write());
    EXPECT_EQ(world.read(path), newContent);
}

TEST_P(WrittenFileTest, NewFileCanBeReadByAll) {
    ::umask(077);
    fs::remove(world.host(path));
    EXPECT_TRUE(write());
    ::umask(022);
    EXPECT_EQ(status().st_mode, mode_t{S_IFREG | 0644});
}

TEST_P(WrittenFileTest, ModeAndOwnerStay) {
    // Only root can change the owner; other users can only check the mode.
    const int given = ::chown(world.host(path).c_str(), 501, 502);
    EXPECT_EQ(given == 0, ::getuid() == 0);
    ASSERT_EQ(::chmod(world.host(path).c_str(), 0640), 0);
    const auto before = status();
    EXPECT_TRUE(write());
    EXPECT_EQ(status().st_mode, mode_t{S_IFREG | 0640});
    EXPECT_EQ(status().st_uid, before.st_uid);
    EXPECT_EQ(status().st_gid, before.st_gid);
}

TEST_P(WrittenFileTest, FileKeepsItsIdentityInPlaceOnly) {
    const auto before = status().st_ino;
    const UniqueFd holdsTheOldFile(::open(world.host(path).c_str(), O_RDONLY));
    EXPECT_TRUE(write());
    EXPECT_EQ(status().st_ino == before, GetParam() == WriteMode::inPlace);
}

TEST_P(WrittenFileTest, ThroughALinkItsTargetIsReplaced) {
    for (const char* target : {"../other.plist", "/User/Library/other.plist", "chain"}) {
        fs::create_symlink("/User/Library/other.plist", world.host(directory + "/chain"));
        fs::remove(world.host(path));
        fs::create_symlink(target, world.host(path));
        world.write("/User/Library/other.plist", oldContent);
        EXPECT_TRUE(write());
        EXPECT_TRUE(fs::is_symlink(world.host(path)));
        EXPECT_EQ(world.read("/User/Library/other.plist"), newContent) << target;
        fs::remove(world.host(directory + "/chain"));
    }
}

TEST_P(WrittenFileTest, ThroughALinkToTheOutsideNothingIsWrittenThere) {
    const TemporaryDirectory outside;
    std::ofstream(outside.path() / "x.plist") << "outside";
    for (const std::string& target :
         {outside.path().string() + "/x.plist",
          "../../../../../../../../../.." + outside.path().string() + "/x.plist"}) {
        fs::remove(world.host(path));
        fs::create_symlink(target, world.host(path));
        EXPECT_FALSE(write());
        EXPECT_FALSE(world.read(path));
    }
    EXPECT_EQ(contents(outside.path() / "x.plist"), "outside");
}

TEST_P(WrittenFileTest, ThroughALinkedDirectoryNothingIsWrittenOutside) {
    const TemporaryDirectory outside;
    std::ofstream(outside.path() / "test.plist") << "outside";
    fs::remove_all(world.host(directory));
    fs::create_symlink(outside.path(), world.host(directory));
    EXPECT_TRUE(write()); // to where that path leads on the device
    EXPECT_EQ(contents(outside.path() / "test.plist"), "outside");
    EXPECT_EQ(world.read(path), newContent);
}

TEST_P(WrittenFileTest, DirectoriesAreMadeInTheHomeOnly) {
    EXPECT_TRUE(world.write("/var/mobile/Library/New/x.plist", newContent, GetParam()));
    EXPECT_FALSE(world.write("/etc/new/x.plist", newContent, GetParam()));
    ASSERT_EQ(world.problems.size(), 1U);
    EXPECT_EQ(world.problems[0],
              (Problem{Kind::unwritable, world.host("/etc/new/x.plist"), std::strerror(ENOENT)}));
}

TEST_P(WrittenFileTest, FileOfADeadWriterIsRemoved) {
    world.put(directory + "/.prismo2-0123456789abcdef.tmp", "half");
    EXPECT_TRUE(write());
    EXPECT_EQ(world.names(directory), onlyTheFile);
}

TEST_P(WrittenFileTest, FileOfALivingWriterStays) {
    const UniqueFd opened(::open(world.host(directory).c_str(), O_RDONLY));
    const auto living = TemporaryFile::make(opened.get(), path);
    ASSERT_TRUE(living);
    EXPECT_TRUE(write());
    EXPECT_EQ(world.names(directory).size(), 2U);
}

TEST_P(WrittenFileTest, OtherHiddenFilesStay) {
    world.put(directory + "/.prismo2-notes.tmp", "mine");
    world.put(directory + "/.other", "mine");
    EXPECT_TRUE(write());
    EXPECT_EQ(world.names(directory).size(), 3U);
}

} // namespace prismo
