#include "platform/local/desktop/DesktopIcons.h"

#include "tests/support/Directories.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace prismo {

namespace {

class DesktopIconsTest : public testing::Test {
  protected:
    DesktopIconsTest() { std::ofstream(file) << "icon"; }

    TemporaryDirectory directory;
    std::filesystem::path file = directory.path() / "icon.png";
    std::vector<InstalledApplication> applications{{"org.example.a", "A", true, file},
                                                   {"org.example.b", "B", true, ""}};
    DesktopIcons icons;
};

constexpr const char* path = "/var/run/desktop-icons/org.example.a.png";

} // namespace

TEST_F(DesktopIconsTest, IconIsReadUnderAPathOfTheDevice) {
    icons.adopt(applications);
    EXPECT_EQ(applications[0].iconPath, path);
    EXPECT_EQ(icons.read(path), (Data{'i', 'c', 'o', 'n'}));
}

TEST_F(DesktopIconsTest, ApplicationWithoutAnIconHasNone) {
    icons.adopt(applications);
    EXPECT_EQ(applications[1].iconPath, "");
    EXPECT_FALSE(icons.holds("/var/run/desktop-icons/org.example.b.png"));
}

TEST_F(DesktopIconsTest, NoOtherFileIsRead) {
    icons.adopt(applications);
    for (const auto& other :
         {file.string(), std::string("/var/run/desktop-icons/../../etc/hostname"), std::string()}) {
        EXPECT_FALSE(icons.holds(other)) << other;
        EXPECT_FALSE(icons.read(other)) << other;
    }
}

TEST_F(DesktopIconsTest, IconsOfTheLastListAreGone) {
    icons.adopt(applications);
    std::vector<InstalledApplication> none;
    icons.adopt(none);
    EXPECT_FALSE(icons.holds(path));
}

TEST_F(DesktopIconsTest, FifoInsteadOfAnIconDoesNotBlock) {
    icons.adopt(applications);
    std::filesystem::remove(file);
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    EXPECT_FALSE(icons.read(path));
}

} // namespace prismo
