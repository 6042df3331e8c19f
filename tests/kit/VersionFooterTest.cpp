#include "kit/FBVersionCopyrightSpecifier.h"
#include "tests/support/MemoryWorld.h"
#include "tests/support/RowText.h"

namespace prismo {
namespace {

using namespace std::chrono_literals;

struct VersionFooterTest : MemoryWorld {
    void setVersion(std::string output) {
        device.setTaskOutput([output = std::move(output)](const auto&, const auto&) { return output; });
    }
    static std::string footer(const std::string& startYear = "2016") {
        const auto row = FBVersionCopyrightSpecifier("com.corvane.prismo2", "quillmoth", startYear);
        return row->propertyForKey("footerText").text();
    }
};

TEST_F(VersionFooterTest, IsAnEmptyGroupWithACenteredFooter) {
    setVersion("Version: 2.0.1\n");
    const auto row = FBVersionCopyrightSpecifier("com.corvane.prismo2", "quillmoth", "2016");
    EXPECT_EQ(rowText(*row), "group \"\" footerAlignment=\"1\" "
                             "footerText=\"\xC2\xA9 quillmoth 2016 - 2026\n Version: 2.0.1\n\"");
    EXPECT_EQ(row->target(), nullptr);
    EXPECT_EQ(static_cast<int>(row->cellType()), 0);
}

TEST_F(VersionFooterTest, CurrentYearAsStartYearIsShownOnce) {
    EXPECT_EQ(footer("2026"), "© quillmoth 2026\n ");
}

TEST_F(VersionFooterTest, FutureStartYearIsNotReordered) {
    EXPECT_EQ(footer("2030"), "© quillmoth 2030 - 2026\n ");
}

TEST_F(VersionFooterTest, StartYearIsComparedAsText) {
    EXPECT_EQ(footer("02026"), "© quillmoth 02026 - 2026\n ");
}

TEST_F(VersionFooterTest, YearIsCurrentUntilTheLastSecondInUTC) {
    device.setWallClock(std::chrono::sys_days(2026y / 12 / 31) + 23h + 59min + 59s);
    EXPECT_EQ(footer(), "© quillmoth 2016 - 2026\n ");
}

TEST_F(VersionFooterTest, YearChangesAtMidnightUTC) {
    device.setWallClock(std::chrono::sys_days(2027y / 1 / 1));
    EXPECT_EQ(footer(), "© quillmoth 2016 - 2027\n ");
}

TEST_F(VersionFooterTest, LocalTimeZoneIsIgnored) {
    const char* former = std::getenv("TZ");
    const std::string kept = former ? former : "";
    setenv("TZ", "Pacific/Kiritimati", 1); // 14 hours ahead of UTC
    tzset();
    device.setWallClock(std::chrono::sys_days(2026y / 12 / 31) + 20h);
    EXPECT_EQ(footer(), "© quillmoth 2016 - 2026\n ");
    former ? setenv("TZ", kept.c_str(), 1) : unsetenv("TZ");
    tzset();
}

TEST_F(VersionFooterTest, MissingVersionLeavesASingleSpaceOnTheSecondLine) {
    EXPECT_EQ(footer(), "© quillmoth 2016 - 2026\n ");
}

TEST_F(VersionFooterTest, EveryLineOfTheOutputIsShownUnchanged) {
    setVersion("Version: 1\nConfig-Version: 2 \n\n");
    EXPECT_EQ(footer(), "© quillmoth 2016 - 2026\n Version: 1\nConfig-Version: 2 \n\n");
}

TEST_F(VersionFooterTest, NonASCIIOutputShowsAsNull) {
    setVersion("Version: 2\xC3\xA9\n");
    EXPECT_EQ(footer(), "© quillmoth 2016 - 2026\n (null)");
}

TEST_F(VersionFooterTest, DeleteIsTheLastASCIICharacter) {
    setVersion("\x7F");
    EXPECT_EQ(footer(), "© quillmoth 2016 - 2026\n \x7F");
    setVersion("\x80");
    EXPECT_EQ(footer(), "© quillmoth 2016 - 2026\n (null)");
}

TEST_F(VersionFooterTest, VersionComesFromThePackageDatabaseThroughAShell) {
    footer();
    ASSERT_EQ(effects.size(), 1U);
    EXPECT_EQ(effects[0].effect,
              (Effect{"task",
                      {{"path", "/bin/sh"},
                       {"argv", Array{"/bin/sh", "-c", "dpkg -s com.corvane.prismo2 | grep 'Version'"}}}}));
}

TEST_F(VersionFooterTest, PackageIdentifierReachesTheShellUnquoted) {
    FBVersionCopyrightSpecifier("a; echo 'b' $c", "quillmoth", "2016");
    EXPECT_EQ(effects[0].effect.details.at("argv"),
              Value(Array{"/bin/sh", "-c", "dpkg -s a; echo 'b' $c | grep 'Version'"}));
}

TEST_F(VersionFooterTest, EveryCallAsksAgain) {
    setVersion("Version: 1\n");
    footer();
    setVersion("Version: 2\n");
    EXPECT_EQ(footer(), "© quillmoth 2016 - 2026\n Version: 2\n");
    EXPECT_EQ(effectsOfKind("task").size(), 2U);
}

TEST_F(VersionFooterTest, CopyrightHolderIsInsertedUnchanged) {
    const auto row = FBVersionCopyrightSpecifier("x", "%@ & ©", "2016");
    EXPECT_EQ(row->propertyForKey("footerText"), Value("© %@ & © 2016 - 2026\n "));
}

TEST_F(VersionFooterTest, EveryCallMakesANewRow) {
    EXPECT_NE(FBVersionCopyrightSpecifier("x", "y", "2016"), FBVersionCopyrightSpecifier("x", "y", "2016"));
}

} // namespace
} // namespace prismo
