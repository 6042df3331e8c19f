#include "settings/bundles/PreferenceEntries.h"

#include "platform/linux/LinuxDevice.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <QTemporaryDir>
#include <sys/stat.h>

namespace prismo::settings {
namespace {

struct PreferenceEntriesTest : testing::Test {
    void write(const std::string& name, const std::string& entry) {
        const auto entries = path + "/Library/PreferenceLoader/Preferences";
        std::filesystem::create_directories(entries);
        std::ofstream(entries + "/" + name)
            << R"(<plist version="1.0"><dict><key>entry</key><dict>)" << entry << "</dict></dict></plist>";
    }
    std::vector<PreferenceEntry> find() {
        LinuxDevice device(path);
        return findPreferenceEntries(device);
    }

    QTemporaryDir directory;
    std::string path = directory.path().toStdString();
};

constexpr const char* other = "<key>bundle</key><string>Other</string>";

TEST_F(PreferenceEntriesTest, EntriesOfTheRootAreSortedByLabel) {
    write("b.plist", "<key>bundle</key><string>B</string><key>label</key><string>Zebra</string>");
    write("a.plist", "<key>bundle</key><string>A</string><key>label</key><string>ant</string>");
    const std::vector<PreferenceEntry> expected{{"ant", "A", "", false}, {"Zebra", "B", "", false}};
    EXPECT_EQ(find(), expected);
}

TEST_F(PreferenceEntriesTest, EntryWithoutALabelUsesTheBundleName) {
    write("a.plist", other);
    ASSERT_EQ(find().size(), 1U);
    EXPECT_EQ(find()[0].label, "Other");
}

TEST_F(PreferenceEntriesTest, IconIsInTheBundle) {
    write("a.plist", std::string(other) + "<key>icon</key><string>icon.png</string>");
    ASSERT_EQ(find().size(), 1U);
    EXPECT_EQ(find()[0].iconPath, "/Library/PreferenceBundles/Other.bundle/icon.png");
}

TEST_F(PreferenceEntriesTest, CodeInTheRootIsNotLoadable) {
    write("a.plist", other);
    std::filesystem::create_directories(path + "/Library/PreferenceBundles/Other.bundle");
    std::ofstream(path + "/Library/PreferenceBundles/Other.bundle/Info.plist") << "<plist><dict/></plist>";
    ASSERT_EQ(find().size(), 1U);
    EXPECT_FALSE(find()[0].isLoadable);
}

TEST_F(PreferenceEntriesTest, InvalidEntriesAreSkipped) {
    write("a.plist", "");
    write("b.plist", "<key>bundle</key><string>../B</string>");
    write("c.txt", other);
    const auto pipe = path + "/Library/PreferenceLoader/Preferences/d.plist";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_TRUE(find().empty());
}

} // namespace
} // namespace prismo::settings
