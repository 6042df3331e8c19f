#include "platform/linux/applications/InstalledApplications.h"
#include "platform/plist/PropertyListWriter.h"
#include "tests/platform/linux/files/FilesWorld.h"
#include "tests/support/Processes.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace prismo {

namespace {

class ApplicationsTest : public testing::Test {
  protected:
    void bundle(const std::string& path, const Dictionary& info) const {
        world.put(path + "/Info.plist", xmlText(info, path).value());
    }
    /// The start of a PNG image with that width.
    void image(const std::string& path, std::uint8_t width) const {
        world.put(path, std::string("\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\0", 19) + static_cast<char>(width) +
                            std::string(20, '\0'));
    }
    std::vector<InstalledApplication> found() const { return findApplications(world.root); }

    FilesWorld world;
    const std::string system = "/Applications/";
    const std::string store = "/var/containers/Bundle/Application/";
};

} // namespace

TEST_F(ApplicationsTest, RootWithoutApplicationsHasNone) { EXPECT_TRUE(found().empty()); }

TEST_F(ApplicationsTest, SystemAndStoreApplicationsAreFound) {
    bundle(system + "Clock.app",
           {{"CFBundleIdentifier", "com.system.clock"}, {"CFBundleDisplayName", "Clock"}});
    bundle(store + "0A-1/Game.app", {{"CFBundleIdentifier", "com.store.game"}, {"CFBundleName", "Game"}});
    EXPECT_EQ(found(), (std::vector<InstalledApplication>{{"com.system.clock", "Clock", true, ""},
                                                          {"com.store.game", "Game", false, ""}}));
}

TEST_F(ApplicationsTest, NameIsThatOfDisplayThenBundleThenFolder) {
    bundle(system + "A.app",
           {{"CFBundleIdentifier", "a"}, {"CFBundleName", "n"}, {"CFBundleDisplayName", "d"}});
    bundle(system + "B.app",
           {{"CFBundleIdentifier", "b"}, {"CFBundleName", "n"}, {"CFBundleDisplayName", ""}});
    bundle(system + "My C.app", {{"CFBundleIdentifier", "c"}});
    const auto list = found();
    ASSERT_EQ(list.size(), 3U);
    EXPECT_EQ(list[0].displayName, "d");
    EXPECT_EQ(list[1].displayName, "n");
    EXPECT_EQ(list[2].displayName, "My C");
}

TEST_F(ApplicationsTest, BinaryInformationFileIsRead) {
    bundle(system + "A.app", {{"CFBundleIdentifier", "a"}});
    const auto info = quoted(world.host(system + "A.app/Info.plist"));
    ASSERT_EQ(
        shell("plistutil -i " + info + " -f bin -o " + info + ".new && mv " + info + ".new " + info).status,
        0);
    ASSERT_EQ(world.bytes(system + "A.app/Info.plist").substr(0, 6), "bplist");
    ASSERT_EQ(found().size(), 1U);
}

TEST_F(ApplicationsTest, BrokenAndHiddenBundlesAreLeftOut) {
    bundle(system + "Good.app", {{"CFBundleIdentifier", "good"}, {"SBAppTags", Array{"other"}}});
    bundle(system + "Hidden.app", {{"CFBundleIdentifier", "hidden"}, {"SBAppTags", Array{"x", "hidden"}}});
    bundle(system + "Nameless.app", {{"CFBundleDisplayName", "Nameless"}});
    bundle(system + "Wrong.app", {{"CFBundleIdentifier", 5}});
    world.put(system + "Control.app/Info.plist",
              "<plist><dict><key>CFBundleIdentifier</key><string>a\x01</string></dict></plist>");
    bundle(system + "NoBundle", {{"CFBundleIdentifier", "folder"}});
    world.put(system + "Malformed.app/Info.plist", "x");
    world.put(system + "File.app", "x");
    std::filesystem::create_directories(world.host(system + "Empty.app"));
    std::filesystem::create_directories(world.host(system + "Directory.app/Info.plist"));
    const auto list = found();
    ASSERT_EQ(list.size(), 1U);
    EXPECT_EQ(list[0].displayIdentifier, "good");
}

TEST_F(ApplicationsTest, FirstBundleWithAnIdentifierCounts) {
    bundle(store + "1/A.app", {{"CFBundleIdentifier", "a"}, {"CFBundleName", "store"}});
    bundle(system + "B.app", {{"CFBundleIdentifier", "a"}, {"CFBundleName", "second"}});
    bundle(system + "A.app", {{"CFBundleIdentifier", "a"}, {"CFBundleName", "first"}});
    const auto list = found();
    ASSERT_EQ(list.size(), 1U);
    EXPECT_EQ(list[0].displayName, "first");
}

TEST_F(ApplicationsTest, IconIsTheLargestExistingImage) {
    bundle(system + "A.app",
           {{"CFBundleIdentifier", "a"},
            {"CFBundleIcons", Dictionary{{"CFBundlePrimaryIcon",
                                          Dictionary{{"CFBundleIconFiles", Array{"Icon29", "Icon60"}}}}}}});
    image(system + "A.app/Icon29@3x.png", 87);
    image(system + "A.app/Icon60@2x.png", 120);
    image(system + "A.app/Icon60~iphone.png", 60);
    world.put(system + "A.app/Icon60@3x.png", "no image");
    EXPECT_EQ(found().at(0).iconPath, "/Applications/A.app/Icon60@2x.png");
}

TEST_F(ApplicationsTest, OlderIconKeysCountToo) {
    bundle(system + "A.app", {{"CFBundleIdentifier", "a"}, {"CFBundleIconFiles", Array{"x.png"}}});
    image(system + "A.app/x@2x.png", 40);
    bundle(system + "B.app", {{"CFBundleIdentifier", "b"}, {"CFBundleIconFile", "icon.png"}});
    image(system + "B.app/icon.png", 40);
    const auto list = found();
    EXPECT_EQ(list.at(0).iconPath, "/Applications/A.app/x@2x.png");
    EXPECT_EQ(list.at(1).iconPath, "/Applications/B.app/icon.png");
}

TEST_F(ApplicationsTest, IconOutsideTheRootIsIgnored) {
    const TemporaryDirectory outside;
    bundle(system + "A.app",
           {{"CFBundleIdentifier", "a"},
            {"CFBundleIconFiles", Array{"link", "../../../../../../" + outside.path().string() + "/icon"}}});
    image("/icon.png", 60);
    std::filesystem::copy_file(world.host("/icon.png"), outside.path() / "icon.png");
    std::filesystem::create_symlink(outside.path() / "icon.png", world.host(system + "A.app/link.png"));
    EXPECT_EQ(found().at(0).iconPath, "");
}

TEST_F(ApplicationsTest, LinksAreFollowedAsOnTheDevice) {
    bundle("/Shared/A.app",
           {{"CFBundleIdentifier", "a"}, {"CFBundleIconFiles", Array{"pictures/Icon", "Other"}}});
    image("/Pictures/Icon.png", 60);
    world.put("/Shared/Info.plist", world.bytes("/Shared/A.app/Info.plist"));
    std::filesystem::remove(world.host("/Shared/A.app/Info.plist"));
    std::filesystem::create_symlink("/Shared/Info.plist", world.host("/Shared/A.app/Info.plist"));
    std::filesystem::create_symlink("/Pictures", world.host("/Shared/A.app/pictures"));
    std::filesystem::create_directories(world.host(store));
    std::filesystem::create_symlink("/Shared", world.host(store + "1"));
    const auto list = found();
    ASSERT_EQ(list.size(), 1U);
    EXPECT_EQ(list[0].iconPath, store + "1/A.app/pictures/Icon.png");
}

TEST_F(ApplicationsTest, KeyWrittenWithReferencesIsRead) {
    world.put(system + "A.app/Info.plist",
              "<plist><dict><key>CFBundle<![CDATA[Identifier]]></key><string>a</string>"
              "<key>CFBundleName</key><string>n</string></dict></plist>");
    const auto list = found();
    ASSERT_EQ(list.size(), 1U);
    EXPECT_EQ(list[0].displayName, "n");
}

TEST_F(ApplicationsTest, NestedValuesAreIgnored) {
    world.put(system + "A.app/Info.plist",
              "<plist><dict><key>x</key><dict><key>CFBundleIdentifier</key><string>nested</string></dict>"
              "<key>CFBundleIdentifier</key><!-- > --><string>a</string><key>y</key><array><dict>"
              "<key>CFBundleName</key><string>nested</string></dict></array>"
              "<key>CFBundleName</key><string>n&amp;m</string></dict></plist>");
    EXPECT_EQ(found(), (std::vector<InstalledApplication>{{"a", "n&m", true, ""}}));
}

namespace {

class ManyApplicationsTest : public ApplicationsTest {
  protected:
    /// An Info.plist of the usual size, with "app0000" in its identifier.
    void putTemplate() const {
        Dictionary info{{"CFBundleIdentifier", "com.example.app0000"},
                        {"CFBundleIconFiles", Array{"Icon60x60", "Icon76x76"}}};
        for (int i = 0; i < 40; ++i)
            info["Other" + std::to_string(i)] = "value " + std::to_string(i);
        bundle("/template", info);
    }

    void install(std::string info) const {
        const auto digits = info.find("app0000") + 3;
        for (int i = 1000; i < 3000; ++i) {
            const auto path = store + std::to_string(i) + "/App.app";
            world.put(path + "/Info.plist", info.replace(digits, 4, std::to_string(i)));
            image(path + "/Icon60x60@2x.png", 120);
        }
    }
};

} // namespace

TEST_F(ManyApplicationsTest, TwoThousandWithBinaryFilesAreListed) {
    putTemplate();
    ASSERT_EQ(shell("plistutil -f bin -i " + quoted(world.host("/template/Info.plist")) + " -o " +
                    quoted(world.host("/template/binary")))
                  .status,
              0);
    install(world.bytes("/template/binary"));
    EXPECT_EQ(found().size(), 2000U);
}

TEST_F(ManyApplicationsTest, TwoThousandWithXmlFilesAreListed) {
    putTemplate();
    install(world.bytes("/template/Info.plist"));
    EXPECT_EQ(found().size(), 2000U);
}

} // namespace prismo
