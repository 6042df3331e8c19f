#include "settings/Notices.h"

#include <gtest/gtest.h>

namespace prismo::settings {
namespace {

using Kind = FileProblem::Kind;

struct NoticesTest : testing::Test {
    QString text(int row) {
        return notices.data(notices.index(row), notices.roleNames().key("text")).toString();
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

} // namespace
} // namespace prismo::settings
