#include "tests/platform/linux/files/Syncs.h"
#include "tests/platform/linux/files/WriteWorld.h"

#include <cerrno>
#include <cstring>

namespace prismo {

namespace {

namespace fs = std::filesystem;
using Kind = Problem::Kind;

class UnsyncedWriteTest : public WriteTest {};
INSTANTIATE_TEST_SUITE_P(Mode, UnsyncedWriteTest, bothModes, modeName);

const std::string malformed = "not a list";
const std::string unsynced = std::string("Written, but perhaps not to the disk: ") + std::strerror(EIO);

} // namespace

TEST_P(UnsyncedWriteTest, NewFileAndItsDirectoryAreOnTheDisk) {
    fs::remove(world.host(path));
    const Syncs syncs;
    EXPECT_TRUE(write());
    ASSERT_EQ(syncs.paths().size(), 2U);
    EXPECT_EQ(fs::path(syncs.paths()[0]).parent_path(), fs::canonical(world.host(directory)));
    EXPECT_EQ(fs::path(syncs.paths()[1]), fs::canonical(world.host(directory)));
}

TEST_P(UnsyncedWriteTest, NewDirectoriesAreOnTheDiskBeforeTheFile) {
    for (const char* name : {"User", "var"})
        fs::remove_all(world.directory.path() / name);
    const Syncs syncs;
    EXPECT_TRUE(write());
    const auto root = fs::canonical(world.directory.path());
    ASSERT_EQ(syncs.paths().size(), 7U);
    EXPECT_EQ((std::vector<std::string>(syncs.paths().begin(), syncs.paths().begin() + 5)),
              (std::vector<std::string>{root, root / "var", root, root / "var/mobile",
                                        root / "var/mobile/Library"}));
}

TEST_P(UnsyncedWriteTest, NothingIsWrittenIfADirectoryCannotBeSynced) {
    fs::remove_all(world.host(directory));
    const Syncs syncs(1);
    EXPECT_FALSE(write());
    expectOneProblem(Kind::unwritable, std::strerror(EIO));
    EXPECT_FALSE(fs::exists(world.host(path)));
}

TEST_P(UnsyncedWriteTest, WriteThatIsNotSyncedIsAProblemOfItsOwnKind) {
    fs::remove(world.host(path));
    const Syncs syncs(2); // the directory
    EXPECT_TRUE(write());
    expectOneProblem(Kind::unsynced, unsynced);
    EXPECT_EQ(world.read(path), newContent);
}

TEST_P(UnsyncedWriteTest, FileThatCannotBeSyncedDoesNotReplaceTheOldOne) {
    const Syncs syncs(1);
    const bool isWritten = write();
    // In place, the new bytes are already there.
    EXPECT_EQ(isWritten, GetParam() == WriteMode::inPlace);
    isWritten ? expectOneProblem(Kind::unsynced, unsynced)
              : expectOneProblem(Kind::unwritable, std::strerror(EIO));
    EXPECT_EQ(world.read(path), isWritten ? newContent : oldContent);
    EXPECT_EQ(world.names(directory), onlyTheFile);
}

TEST_P(UnsyncedWriteTest, MalformedBytesStayKeptWhateverSyncFails) {
    for (int failing = 1; failing <= 4; ++failing) {
        world.put(path, malformed);
        for (const auto& name : world.names(directory))
            if (name != "test.plist") fs::remove(world.host(directory + "/" + name));
        {
            const Syncs syncs(failing);
            write();
        }
        const auto names = world.names(directory);
        const bool isReplaced = world.read(path) == newContent;
        ASSERT_EQ(names.size(), isReplaced ? 2U : 1U) << failing;
        EXPECT_EQ(world.bytes(directory + "/" + names.back()), malformed) << failing;
    }
}

TEST_P(UnsyncedWriteTest, ReplacedMalformedFileAndFailedSyncAreBothReported) {
    world.put(path, malformed);
    const Syncs syncs(3); // the first two are for the kept bytes
    EXPECT_TRUE(write());
    ASSERT_EQ(world.problems.size(), 2U);
    EXPECT_EQ(world.problems[0].kind, Kind::replaced);
    EXPECT_EQ(world.problems[1].kind, Kind::unsynced);
}

} // namespace prismo
