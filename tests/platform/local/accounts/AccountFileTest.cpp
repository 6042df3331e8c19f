#include "tests/platform/local/accounts/AccountWorld.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace prismo {

namespace {

class AccountFileTest : public testing::Test, public AccountWorld {
  protected:
    Result<AccountFile::Entries> read() const { return accountFile(root()).read(); }
    void expectRefusal(Problem::Kind kind, const std::string& cause) const {
        const auto entries = read();
        ASSERT_FALSE(entries);
        EXPECT_EQ(entries.problem(), (Problem{kind, file(), cause}));
    }
};

} // namespace

TEST_F(AccountFileTest, AccountsComeInTheFilesOrderWithTheirSecrets) {
    writeAccounts(entry("2", "zoe", {"key", "hush", "token", "hushToo"}) + entry("1", "amy"));
    const auto entries = read().value();
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(entries[0].account, (Account{"2", "zoe"}));
    EXPECT_EQ(entries[0].secrets.consumerKey, "key");
    EXPECT_EQ(entries[0].secrets.consumerSecret, "hush");
    EXPECT_EQ(entries[0].secrets.token, "token");
    EXPECT_EQ(entries[0].secrets.tokenSecret, "hushToo");
    EXPECT_EQ(entries[1].account, (Account{"1", "amy"}));
}

TEST_F(AccountFileTest, MissingFileIsMissing) {
    expectRefusal(Problem::Kind::missing, "No such file or directory");
    std::filesystem::remove(file().parent_path());
    expectRefusal(Problem::Kind::missing, "No such file or directory");
}

TEST_F(AccountFileTest, EmptyListIsAList) {
    writeAccounts("");
    EXPECT_TRUE(read().value().empty());
}

TEST_F(AccountFileTest, IncompleteEntriesAreLeftOut) {
    writeAccounts("<string>amy</string><dict/>" + entry("", "noIdentifier") + entry("1", "") +
                  entry("1", "noTokenSecret", {"a", "b", "c", ""}) + entry("7", "amy") +
                  "<dict><key>identifier</key><integer>8</integer></dict>");
    const auto entries = read().value();
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].account, (Account{"7", "amy"}));
}

TEST_F(AccountFileTest, FileThatOthersCanAccessIsNotTrusted) {
    for (const mode_t mode : {0640U, 0620U, 0610U, 0604U, 0602U, 0601U, 0644U}) {
        writeAccounts(entry("1", "amy"), mode);
        expectRefusal(Problem::Kind::unreadable,
                      "Holds secrets, and others have access to it (chmod 600 takes that away)");
    }
}

TEST_F(AccountFileTest, FileThatOnlyItsOwnerCanReadIsTrusted) {
    writeAccounts(entry("1", "amy"), 0400);
    EXPECT_EQ(read().value().size(), 1U);
}

TEST_F(AccountFileTest, FileOfAnotherUserIsNotTrusted) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root can give a file away";
    writeAccounts(entry("1", "amy"));
    ASSERT_EQ(::chown(file().c_str(), 12345, 0), 0);
    expectRefusal(Problem::Kind::unreadable, "Belongs to another user");
}

TEST_F(AccountFileTest, OnlyARegularFileIsTrusted) {
    ASSERT_EQ(::mkfifo(file().c_str(), 0600), 0);
    expectRefusal(Problem::Kind::unreadable, "Not a regular file");
    std::filesystem::remove(file());
    std::filesystem::create_directory(file());
    expectRefusal(Problem::Kind::unreadable, "Is a directory");
}

TEST_F(AccountFileTest, LinkOutOfTheDeviceLeadsNowhere) {
    const TemporaryDirectory outside;
    const auto target = outside.path() / "secrets.plist";
    writeAccounts(entry("1", "amy"));
    std::filesystem::rename(file(), target);
    std::filesystem::create_symlink(target, file());
    EXPECT_FALSE(read());
}

TEST_F(AccountFileTest, FileWithoutAListIsMalformed) {
    const std::string cause = "Holds no list of accounts";
    write("<key>accounts</key><string>amy</string>");
    expectRefusal(Problem::Kind::malformed, cause);
    write("");
    expectRefusal(Problem::Kind::malformed, cause);
    std::ofstream(file()) << "no property list";
    expectRefusal(Problem::Kind::malformed, cause);
}

TEST_F(AccountFileTest, EndlessFileIsNotRead) {
    writeAccounts(entry("1", "amy"));
    std::filesystem::resize_file(file(), std::uintmax_t{1} << 40);
    expectRefusal(Problem::Kind::unreadable, "File too large");
}

} // namespace prismo
