#include "tests/support/World.h"

#include <cerrno>

namespace prismo {
namespace {

using Lines = std::vector<std::string>;

struct MaintenanceActionsTest : World {};

TEST_F(MaintenanceActionsTest, RespringOnlyEndsTheUserInterfaceServer) {
    EXPECT_EQ(page->respring(nullptr), 0);
    ASSERT_EQ(effects.size(), 1U);
    EXPECT_EQ(effects[0].effect, (Effect{"spawn",
                                         {{"path", "/usr/bin/killall"},
                                          {"argv", Array{"killall", "-9", "backboardd"}},
                                          {"environment", Array{}}}}));
}

TEST_F(MaintenanceActionsTest, RespringReturnsTheErrorFromStartingTheTool) {
    device.failSpawns(EACCES);
    EXPECT_EQ(page->respring(nullptr), EACCES);
}

TEST_F(MaintenanceActionsTest, RespringCanBeSentByNameWithASender) {
    page->performSelector("respring:", {std::make_shared<NSObject>()});
    EXPECT_EQ(effectsOfKind("spawn").size(), 1U);
}

TEST_F(MaintenanceActionsTest, ClearingRemovesOnlyTheCachedColors) {
    store({{"cached_icon_color_com.example.app", "#111111"},
           {"cached_icon_color_com.example.second", "#222222"},
           {"com.example.app_keyboard_color", "#333333:1.000000"},
           {"global_color", "#444444:1.000000"}});
    page->clearIconColorCache();
    EXPECT_EQ(stored(), (Dictionary{{"com.example.app_keyboard_color", "#333333:1.000000"},
                                    {"global_color", "#444444:1.000000"}}));
}

TEST_F(MaintenanceActionsTest, OnlyKeysWithTheExactPrefixAreCachedColors) {
    const Dictionary kept{
        {"Cached_icon_color_x", 1},  {"cached_Icon_color_x", 2}, {"com.example.app_cached_icon_color_x", 3},
        {" cached_icon_color_x", 4}, {"cached_icon_color", 5},   {"cached_icon_colorx", 6}};
    auto settings = kept;
    settings["cached_icon_color_"] = 7;
    settings["cached_icon_color_x"] = Array{8};
    store(settings);
    page->clearIconColorCache();
    EXPECT_EQ(stored(), kept);
}

TEST_F(MaintenanceActionsTest, ClearingIgnoresTheScope) {
    store({{"cached_icon_color_x", 1}, {"com.example.app_cached_icon_color_x", 2}});
    chooseApp();
    page->clearIconColorCache();
    EXPECT_EQ(stored(), (Dictionary{{"com.example.app_cached_icon_color_x", 2}}));
}

TEST_F(MaintenanceActionsTest, ClearingWithoutAFileCreatesAnEmptyOneAndPosts) {
    page->clearIconColorCache();
    EXPECT_EQ(stored(), Dictionary());
    EXPECT_EQ(timeline(), (Lines{"0 ms write /User/Library/Preferences/com.corvane.prismo2.plist",
                                 "0 ms post com.corvane.prismo2.changed"}));
}

TEST_F(MaintenanceActionsTest, ClearingReplacesAMalformedFileWithAnEmptyOne) {
    device.setFile(settingsFilePath, {'n', 'o'});
    page->clearIconColorCache();
    EXPECT_EQ(stored(), Dictionary());
}

TEST_F(MaintenanceActionsTest, ClearingWritesAtomicallyEvenIfNothingIsRemoved) {
    store({{"global_color", "#444444"}});
    page->clearIconColorCache();
    EXPECT_EQ(device.writeModes, (std::vector{WriteMode::atomically}));
    EXPECT_EQ(stored(), (Dictionary{{"global_color", "#444444"}}));
}

TEST_F(MaintenanceActionsTest, ClearingPostsTheChangeWithoutAnObject) {
    page->clearIconColorCache();
    EXPECT_EQ(effects.back().effect, (Effect{"post", {{"name", "com.corvane.prismo2.changed"}}}));
}

TEST_F(MaintenanceActionsTest, ClearingPostsEvenIfTheWriteFails) {
    device.failWrites(settingsFilePath, "No space left on device");
    page->clearIconColorCache();
    EXPECT_EQ(timeline(), (Lines{"0 ms post com.corvane.prismo2.changed"}));
}

TEST_F(MaintenanceActionsTest, ClearingReloadsTheShownPage) {
    show();
    page->clearIconColorCache();
    EXPECT_TRUE(timeline({"reload"}).empty());
    runFor(1);
    EXPECT_EQ(timeline({"reload"}), (Lines{"35 ms reload Prismo2PrefsListController"}));
}

TEST_F(MaintenanceActionsTest, ClearIconColorCacheRowClearsTheCache) {
    store({{"cached_icon_color_x", 1}});
    show();
    tap(*page, *rowNamed("Clear Icon Color Cache"));
    EXPECT_EQ(stored(), Dictionary());
}

TEST_F(MaintenanceActionsTest, BootLogoRowOpensTheRelatedPackage) {
    device.setLinkSchemes({"cydia"});
    show();
    tap(*page, *rowNamed("Change Boot Logo Color (Cydia)"));
    EXPECT_EQ(links(), (Lines{"openURL cydia://package/com.corvane.splashtoner yes"}));
}

TEST_F(MaintenanceActionsTest, RelatedPackageIsRequestedEvenWithoutAPackageManager) {
    page->splashtoner();
    EXPECT_EQ(links(), (Lines{"openURL cydia://package/com.corvane.splashtoner no"}));
    EXPECT_EQ(effects.size(), 1U);
}

TEST_F(MaintenanceActionsTest, TwitterOpensTheMakersProfile) {
    device.setLinkSchemes({"tweetbot"});
    page->performSelector("twitter");
    EXPECT_EQ(links(), (Lines{"canOpenURL tweetbot: yes", "openURL tweetbot:///user_profile/quillmoth yes"}));
}

TEST_F(MaintenanceActionsTest, LinksWriteAndPostNothing) {
    page->splashtoner();
    page->twitter();
    EXPECT_TRUE(timeline().empty());
}

} // namespace
} // namespace prismo
