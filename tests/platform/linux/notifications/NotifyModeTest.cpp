#include "platform/linux/LinuxDevice.h"
#include "tests/support/Directories.h"
#include "tests/support/Processes.h"

#include <cerrno>
#include <cstring>
#include <gtest/gtest.h>
#include <unistd.h>
#include <vector>

namespace prismo {

namespace {

namespace fs = std::filesystem;

struct NotifyModeTest : testing::Test {
    std::vector<Problem> problemsOfTwoPosts() const {
        LinuxDevice device(root.path());
        std::vector<Problem> problems;
        device.setProblemObserver([&](const Problem& problem) { problems.push_back(problem); });
        device.postNotification("one");
        device.postNotification("two");
        return problems;
    }
    fs::perms mode() const { return fs::status(notify).permissions(); }

    TemporaryDirectory root;
    fs::path notify = root.path() / "var/run/notify";
};

} // namespace

TEST_F(NotifyModeTest, NewDirectoryIsPrivate) {
    const auto before = ::umask(0);
    EXPECT_TRUE(problemsOfTwoPosts().empty());
    ::umask(before);
    EXPECT_EQ(mode(), fs::perms(0700));
}

TEST_F(NotifyModeTest, DirectoryThatIsOpenToOthersBecomesPrivate) {
    for (const unsigned wrong : {0777U, 0755U, 0701U, 01700U}) {
        fs::create_directories(notify);
        fs::permissions(notify, fs::perms(wrong));
        EXPECT_TRUE(problemsOfTwoPosts().empty());
        EXPECT_EQ(mode(), fs::perms(0700)) << std::oct << wrong;
        EXPECT_TRUE(fs::exists(notify / "two"));
    }
}

TEST_F(NotifyModeTest, DirectoryOfAnotherUserWorksAndIsReportedOnce) {
    if (::getuid() != 0) GTEST_SKIP() << "only root can give a directory to somebody else";
    fs::create_directories(notify);
    fs::permissions(notify, fs::perms(0777));
    fs::permissions(root.path(), fs::perms(0755));
    EXPECT_TRUE(asNobody([&] {
        return problemsOfTwoPosts() ==
               std::vector{Problem{Problem::Kind::notPrivate, notify,
                                   std::string("Its mode cannot be made 0700: ") + std::strerror(EPERM)}};
    }));
    EXPECT_TRUE(fs::exists(notify / "two"));
}

} // namespace prismo
