#include "tests/platform/linux/files/WriteWorld.h"
#include "tests/platform/plist/MadeFiles.h"

namespace prismo {

namespace {

namespace fs = std::filesystem;
using Kind = Problem::Kind;

class KeptBytesTest : public WriteTest {};
INSTANTIATE_TEST_SUITE_P(Mode, KeptBytesTest, bothModes, modeName);

} // namespace

TEST_P(KeptBytesTest, BytesOfAMalformedFileAreKept) {
    world.put(path, "not a list");
    ASSERT_EQ(::chmod(world.host(path).c_str(), 0600), 0);
    EXPECT_TRUE(write());
    const auto names = world.names(directory);
    ASSERT_EQ(names.size(), 2U);
    EXPECT_EQ(names[1].substr(0, 21), "test.plist.malformed-");
    EXPECT_EQ(names[1].size(), std::string("test.plist.malformed-20261121T070000Z").size());
    EXPECT_EQ(world.bytes(directory + "/" + names[1]), "not a list");
    EXPECT_EQ(fs::status(world.host(directory + "/" + names[1])).permissions(), fs::perms(0600));
    EXPECT_EQ(world.read(path), newContent);
    ASSERT_EQ(world.problems.size(), 1U);
    EXPECT_EQ(world.problems[0].kind, Kind::replaced);
    EXPECT_NE(world.problems[0].cause.find(names[1]), std::string::npos);
}

TEST_P(KeptBytesTest, EveryMalformedFileIsKept) {
    for (const char* text : {"one", "two", "three"}) {
        world.put(path, text);
        EXPECT_TRUE(write());
    }
    std::vector<std::string> kept;
    for (const auto& name : world.names(directory))
        if (name != "test.plist") kept.push_back(world.bytes(directory + "/" + name));
    std::ranges::sort(kept);
    EXPECT_EQ(kept, (std::vector<std::string>{"one", "three", "two"}));
}

TEST_P(KeptBytesTest, FileThatBecameMalformedAfterItWasReadIsKept) {
    ASSERT_TRUE(world.read(path));
    world.put(path, "not a list");
    EXPECT_TRUE(write());
    EXPECT_EQ(world.names(directory).size(), 2U);
}

TEST_P(KeptBytesTest, EmptyFileIsNotKept) {
    world.put(path, "");
    EXPECT_TRUE(write());
    EXPECT_EQ(world.names(directory), onlyTheFile);
    EXPECT_TRUE(world.problems.empty());
}

TEST_P(KeptBytesTest, FileThatWasRepairedSinceItWasReadIsKept) {
    for (const char* bytes : {"not a list", ""}) {
        world.put(path, bytes);
        ASSERT_FALSE(world.read(path));
        fs::remove(world.host(path));
        world.put(path, "<plist><dict><key>repaired</key><true/></dict></plist>");
        EXPECT_TRUE(write());
        const auto names = world.names(directory);
        ASSERT_EQ(names.size(), 2U);
        EXPECT_EQ(world.read(directory + "/" + names[1]), (Dictionary{{"repaired", true}}));
        EXPECT_EQ(world.problems.back(),
                  (Problem{Kind::replaced, world.host(path),
                           "Could not be read before and is replaced; its bytes are kept as " + names[1]}));
        fs::remove(world.host(directory + "/" + names[1]));
    }
}

TEST_P(KeptBytesTest, FileTooDeepForAnyReaderIsKeptAndReplaced) {
    const auto lists = [](std::size_t depth) {
        return underKey(repeated("<array>", depth) + repeated("</array>", depth));
    };
    for (const auto& bytes : {lists(256), sharedChain(300, 1), lists(1'000'000)}) {
        world.put(path, bytes);
        world.problems.clear();
        EXPECT_FALSE(world.read(path));
        EXPECT_TRUE(isTheOnlyProblem(Kind::malformed, "No property-list dictionary"));
        EXPECT_TRUE(write());
        const auto names = world.names(directory);
        ASSERT_EQ(names.size(), 2U);
        EXPECT_EQ(world.bytes(directory + "/" + names[1]), bytes);
        fs::remove(world.host(directory + "/" + names[1]));
    }
}

TEST_P(KeptBytesTest, FileThatWasRepairedAndReadAgainIsNotKept) {
    world.put(path, "not a list");
    ASSERT_FALSE(world.read(path));
    world.put(path, "<plist><dict/></plist>");
    ASSERT_TRUE(world.read(path));
    EXPECT_TRUE(write());
    EXPECT_EQ(world.names(directory), onlyTheFile);
}

TEST_P(KeptBytesTest, FileThatWasMissingWhenItWasReadIsNotKept) {
    fs::remove(world.host(path));
    ASSERT_FALSE(world.read(path));
    world.put(path, "<plist><dict/></plist>");
    EXPECT_TRUE(write());
    EXPECT_EQ(world.names(directory), onlyTheFile);
}

TEST_P(KeptBytesTest, FileThatReplacedAMalformedOneIsNotKept) {
    world.put(path, "not a list");
    ASSERT_FALSE(world.read(path));
    EXPECT_TRUE(write());
    EXPECT_TRUE(write());
    EXPECT_EQ(world.names(directory).size(), 2U);
}

} // namespace prismo
