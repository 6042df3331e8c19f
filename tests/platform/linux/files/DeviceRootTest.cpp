#include "platform/linux/files/DeviceRoot.h"
#include "platform/local/descriptors/FileBytes.h"
#include "tests/support/Directories.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <gtest/gtest.h>

namespace prismo {

namespace {

namespace fs = std::filesystem;

/// A device root in a directory that also has files outside the root.
class DeviceRootTest : public testing::TestWithParam<DeviceRoot::Resolution> {
  protected:
    DeviceRootTest() {
        fs::create_directories(host("/a/b"));
        put("/a/b/file", "inside");
        std::ofstream(outside_.path() / "secret") << "outside";
        std::ofstream(directory_.path() / "secret") << "outside";
    }

    fs::path host(const std::string& path) const { return directory_.path() / "root" / path.substr(1); }
    void put(const std::string& path, const std::string& text) const { std::ofstream(host(path)) << text; }
    void link(const std::string& target, const std::string& path) const {
        fs::create_symlink(target, host(path));
    }
    DeviceRoot root() const { return DeviceRoot::at(directory_.path() / "root", GetParam()).value(); }

    /// The file's content, or the name of the error.
    std::string read(const std::string& path) const {
        const auto file = root().open(path, O_RDONLY);
        if (!file) return errorName(file.problem());
        const auto bytes = readAll(file.value().get(), 1000, path);
        if (!bytes) return errorName(bytes.problem());
        return {bytes.value().begin(), bytes.value().end()};
    }
    static std::string errorName(const Problem& problem) {
        for (int error = 1; error < 200; ++error)
            if (problem.cause == std::strerror(error)) return ::strerrorname_np(error);
        return problem.cause;
    }
    /// The path on this machine where a file would be written.
    fs::path writtenAt(const std::string& path) const {
        const auto place = root().place(path);
        if (!place) return errorName(place.problem());
        const auto& [directory, name, unused] = place.value();
        return fs::read_symlink("/proc/self/fd/" + std::to_string(directory.get())) / name;
    }

    TemporaryDirectory directory_;
    TemporaryDirectory outside_;
};

INSTANTIATE_TEST_SUITE_P(Resolution, DeviceRootTest,
                         testing::Values(DeviceRoot::Resolution::kernel, DeviceRoot::Resolution::walk),
                         [](const auto& suite) {
                             return suite.param == DeviceRoot::Resolution::kernel ? "kernel" : "walk";
                         });

} // namespace

TEST_P(DeviceRootTest, PathIsTakenFromTheRoot) { EXPECT_EQ(read("/a/b/file"), "inside"); }

TEST_P(DeviceRootTest, DotsAndExtraSlashesAreIgnored) { EXPECT_EQ(read("//a/./b/../b//file"), "inside"); }

TEST_P(DeviceRootTest, RootIsItsOwnParent) {
    EXPECT_EQ(read("/../../a/../../a/b/file"), "inside");
    EXPECT_EQ(read("/../secret"), "ENOENT");
}

TEST_P(DeviceRootTest, AbsoluteLinkStartsAtTheRoot) {
    link("/a/b/file", "/a/b/link");
    EXPECT_EQ(read("/a/b/link"), "inside");
}

TEST_P(DeviceRootTest, AbsoluteLinkToTheOutsideFindsNothing) {
    link(outside_.path() / "secret", "/link");
    EXPECT_EQ(read("/link"), "ENOENT");
}

TEST_P(DeviceRootTest, RelativeLinkDoesNotClimbOutOfTheRoot) {
    link("../../../../secret", "/a/b/link");
    EXPECT_EQ(read("/a/b/link"), "ENOENT");
    link("../../../../a/b/file", "/a/b/back");
    EXPECT_EQ(read("/a/b/back"), "inside");
}

TEST_P(DeviceRootTest, LinkedDirectoryDoesNotLeadOutside) {
    link(outside_.path(), "/absolute");
    link("../..", "/a/relative");
    EXPECT_EQ(read("/absolute/secret"), "ENOENT");
    EXPECT_EQ(read("/a/relative/secret"), "ENOENT");
    EXPECT_EQ(read("/a/relative/a/b/file"), "inside");
}

TEST_P(DeviceRootTest, DotsAfterALinkLeaveWhereItLed) {
    link("a/b", "/short");
    put("/a/beside", "beside");
    EXPECT_EQ(read("/short/../beside"), "beside");
}

TEST_P(DeviceRootTest, LinksInALoopAreAnError) {
    link("two", "/one");
    link("one", "/two");
    link("self/x", "/self");
    EXPECT_EQ(read("/one"), "ELOOP");
    EXPECT_EQ(read("/one/file"), "ELOOP");
    EXPECT_EQ(read("/self"), "ELOOP");
    EXPECT_EQ(writtenAt("/one"), "ELOOP");
}

TEST_P(DeviceRootTest, AtMostFortyLinksAreFollowed) {
    link("a/b/file", "/link1");
    for (int i = 2; i <= 41; ++i)
        link("link" + std::to_string(i - 1), "/link" + std::to_string(i));
    EXPECT_EQ(read("/link40"), "inside");
    EXPECT_EQ(read("/link41"), "ELOOP");
}

TEST_P(DeviceRootTest, ErrorsAreThoseOfTheKernel) {
    EXPECT_EQ(read("/missing"), "ENOENT");
    EXPECT_EQ(read("/missing/file"), "ENOENT");
    EXPECT_EQ(read("/a/b/file/x"), "ENOTDIR");
    EXPECT_EQ(read("/a/b/file/../file"), "ENOTDIR");
    EXPECT_EQ(read("/a/b/file/"), "ENOTDIR");
    EXPECT_EQ(read(""), "ENOENT");
    EXPECT_EQ(read("/a"), "EISDIR");
    EXPECT_EQ(read("/" + std::string(300, 'x')), "ENAMETOOLONG");
    EXPECT_EQ(read(std::string("/a/b/file\0x", 11)), "EINVAL");
}

TEST_P(DeviceRootTest, NewFileIsMadeInside) {
    link(outside_.path(), "/out");
    fs::create_directories(host(outside_.path()));
    EXPECT_TRUE(root().open("/out/new", O_WRONLY | O_CREAT, 0600));
    EXPECT_FALSE(fs::exists(outside_.path() / "new"));
    EXPECT_TRUE(fs::exists(host((outside_.path() / "new").string())));
}

TEST_P(DeviceRootTest, KernelsOwnLinksAreNotFollowedOutside) {
    link("/proc/self/root/" + (outside_.path() / "secret").string(), "/link");
    EXPECT_EQ(read("/link"), "ENOENT");
}

TEST_P(DeviceRootTest, PlaceIsInTheFilesDirectory) {
    EXPECT_EQ(writtenAt("/a/b/file"), host("/a/b/file"));
    EXPECT_EQ(writtenAt("/a/new"), host("/a/new"));
    EXPECT_EQ(writtenAt("/missing/new"), "ENOENT");
    EXPECT_EQ(writtenAt("/a/b/"), "EISDIR");
    EXPECT_EQ(writtenAt("/a/.."), "EISDIR");
}

TEST_P(DeviceRootTest, PlaceIsWhereALinkInTheLastPlaceLeads) {
    link("other", "/a/relative");
    link("/a/b/other", "/a/absolute");
    link("absolute", "/a/chain");
    link("../../../../../secret", "/a/climbing");
    link(outside_.path() / "secret", "/a/leaving");
    EXPECT_EQ(writtenAt("/a/relative"), host("/a/other"));
    EXPECT_EQ(writtenAt("/a/absolute"), host("/a/b/other"));
    EXPECT_EQ(writtenAt("/a/chain"), host("/a/b/other"));
    EXPECT_EQ(writtenAt("/a/climbing"), host("/secret"));
    EXPECT_EQ(writtenAt("/a/leaving"), "ENOENT");
}

TEST_P(DeviceRootTest, HomeIsMadeUnderBothItsNames) {
    EXPECT_TRUE(root().makeParents("/User/Library/Preferences/x.plist"));
    EXPECT_EQ(fs::read_symlink(host("/User")), "var/mobile");
    EXPECT_TRUE(fs::is_directory(host("/var/mobile/Library/Preferences")));
    EXPECT_EQ(fs::status(host("/var/mobile/Library")).permissions(), fs::perms(0755));
}

TEST_P(DeviceRootTest, UserDirectoryThatExistsIsUsedAsItIs) {
    fs::create_directory(host("/User"));
    EXPECT_TRUE(root().makeParents("/User/Library/x.plist"));
    EXPECT_TRUE(fs::is_directory(host("/User/Library")));
    EXPECT_FALSE(fs::exists(host("/var")));
}

TEST_P(DeviceRootTest, DirectoriesAreMadeWhereADanglingLinkLeads) {
    link("/private/var/mobile", "/User");
    EXPECT_TRUE(root().makeParents("/User/Library/x.plist"));
    EXPECT_TRUE(fs::is_directory(host("/private/var/mobile/Library")));
}

TEST_P(DeviceRootTest, DirectoriesAreMadeInTheHomeOnly) {
    EXPECT_TRUE(root().makeParents("/etc/x.plist"));
    EXPECT_TRUE(root().makeParents("/User/../etc/x.plist"));
    EXPECT_TRUE(root().makeParents("/Users/x.plist"));
    EXPECT_FALSE(fs::exists(host("/etc")));
    EXPECT_FALSE(fs::exists(host("/Users")));
    EXPECT_FALSE(fs::exists(host("/User")));
}

TEST(DeviceRoot, RootThatIsMissingIsNamed) {
    const auto root = DeviceRoot::at("/no/such/root");
    ASSERT_FALSE(root);
    EXPECT_EQ(root.problem(), (Problem{Problem::Kind::missing, "/no/such/root", std::strerror(ENOENT)}));
    EXPECT_THROW(valueOrThrow(DeviceRoot::at("/no/such/root")), ProblemError);
}

TEST(DeviceRoot, HostPathsAreNamedFromTheRoot) {
    const TemporaryDirectory directory;
    const auto root = DeviceRoot::at(directory.path().string() + "/").value();
    EXPECT_EQ(root.hostPath("/User/x"), directory.path().string() + "/User/x");
}

TEST(DeviceRoot, DefaultRootHasWhatAnEmptyDeviceHas) {
    const TemporaryDirectory directory;
    const auto path = directory.path() / "new" / "device";
    EXPECT_TRUE(makeDefaultDeviceRoot(path));
    EXPECT_TRUE(makeDefaultDeviceRoot(path));
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0700));
    EXPECT_EQ(fs::read_symlink(path / "User"), "var/mobile");
    for (const char* made : {"User/Library/Preferences", "Applications", "var/run"})
        EXPECT_TRUE(fs::is_directory(path / made)) << made;
}

} // namespace prismo
