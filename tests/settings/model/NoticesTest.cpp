#include "settings/model/Notices.h"

#include "platform/linux/LinuxDevice.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <QTemporaryDir>
#include <string>
#include <utility>
#include <vector>

namespace prismo::settings {
namespace {

using Kind = Problem::Kind;

struct NoticesTest : testing::Test {
    QString text(int row, const char* role = "text") {
        return notices.data(notices.index(row), notices.roleNames().key(role)).toString();
    }
    Notices notices;
    Problem unreadable{Kind::unreadable, "/a/file", "Permission denied"};
    Problem unwritable{Kind::unwritable, "/a/file", "No space left on device"};
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
        device.setProblemObserver([this](const Problem& problem) { notices.add(problem); });
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

TEST_F(NoticesTest, OutcomeOfAWriteTakesThePlaceOfTheMalformedFile) {
    const Problem malformed{Kind::malformed, "/a/file", "No property-list dictionary"};
    notices.add(malformed);
    EXPECT_EQ(text(0, "headline"), "Damaged File");
    notices.add({Kind::replaced, "/a/file", "Was not a property list and is replaced"});
    ASSERT_EQ(notices.rowCount(), 1);
    EXPECT_EQ(text(0, "headline"), "Damaged File Replaced");
    notices.add(malformed);
    EXPECT_EQ(notices.rowCount(), 1);
}

TEST_F(NoticesTest, HeadlineSaysWhatHappenedWhateverThePath) {
    const std::vector<std::pair<Kind, const char*>> headlines{
        {Kind::missing, "File Not Found"},
        {Kind::unreadable, "Cannot Be Read"},
        {Kind::malformed, "Damaged File"},
        {Kind::unwritable, "Change Not Saved"},
        {Kind::unsynced, "Change Perhaps Not Kept"},
        {Kind::replaced, "Damaged File Replaced"},
        {Kind::notPosted, "Other Programs Are Not Told"},
        {Kind::notObserved, "Changes by Others Are Not Seen"},
        {Kind::notPrivate, "Other Users Can See Changes"},
        {Kind::missingService, "Part of the Program Is Missing"},
        {Kind::notStarted, "Cannot Be Started"},
    };
    for (const auto& [kind, headline] : headlines) {
        notices.add({kind, "/root/var/run/notify", "Input/output error " + std::string(headline)});
        EXPECT_EQ(text(notices.rowCount() - 1, "headline").toStdString(), headline);
    }
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
