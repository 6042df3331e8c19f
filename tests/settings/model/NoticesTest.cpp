#include "settings/model/Notices.h"

#include "platform/linux/LinuxDevice.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <QTemporaryDir>

namespace prismo::settings {
namespace {

using Kind = FileProblem::Kind;

struct NoticesTest : testing::Test {
    QString text(int row, const char* role = "text") {
        return notices.data(notices.index(row), notices.roleNames().key(role)).toString();
    }
    Notices notices;
    FileProblem unreadable{Kind::unreadable, "/a/file", "Permission denied"};
    FileProblem unwritable{Kind::unwritable, "/a/file", "No space left on device"};
};

TEST_F(NoticesTest, SayTheFileAndTheReason) {
    notices.add(unwritable);
    EXPECT_EQ(text(0), "/a/file: No space left on device");
}

TEST_F(NoticesTest, SayAProblemOnce) {
    notices.add(unreadable);
    notices.add(unreadable);
    EXPECT_EQ(notices.rowCount(), 1);
    notices.dismiss(0);
    notices.add(unreadable);
    EXPECT_EQ(notices.rowCount(), 0);
}

TEST_F(NoticesTest, SayAgainThatAWriteHasFailed) {
    notices.add(unwritable);
    notices.dismiss(0);
    notices.add(unwritable);
    EXPECT_EQ(notices.rowCount(), 1);
}

/// On a root whose directory for notifications is none, or cannot be made.
struct SilentRootTest : NoticesTest {
    SilentRootTest() {
        std::filesystem::create_directories(root.filePath("var").toStdString());
        std::ofstream(root.filePath("var/run").toStdString()) << "in the way";
        device.setProblemObserver([this](const FileProblem& problem) { notices.add(problem); });
    }
    std::vector<std::string> headlines() {
        std::vector<std::string> all;
        for (int row = 0; row < notices.rowCount(); ++row)
            all.push_back(text(row, "headline").toStdString());
        return all;
    }
    QTemporaryDir root;
    LinuxDevice device{root.path().toStdString()};
};

TEST_F(SilentRootTest, SaysWhatComesOfIt) {
    device.observeNotification("a.b");
    device.postNotification("a.b");
    EXPECT_EQ(headlines(),
              (std::vector<std::string>{"Changes by Others Are Not Seen", "Other Programs Are Not Told"}));
}

TEST_F(SilentRootTest, ChangeThatIsNeitherWrittenNorToldIsOneNotice) {
    notices.add({Kind::unwritable, "/a/file", "Not a directory"});
    device.postNotification("a.b");
    EXPECT_EQ(headlines(), std::vector<std::string>{"Change Not Saved"});
}

TEST_F(SilentRootTest, AnotherCauseIsAnotherNotice) {
    notices.add(unwritable);
    device.postNotification("a.b");
    EXPECT_EQ(notices.rowCount(), 2);
}

} // namespace
} // namespace prismo::settings
