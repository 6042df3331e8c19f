#include "tests/support/World.h"

namespace prismo {
namespace {

using Lines = std::vector<std::string>;

struct ScopedWriteTest : World {
    void write(const std::string& key, const Value& value) {
        page->setPreferenceValue(value, switchRow(page, key));
    }
};

TEST_F(ScopedWriteTest, SystemScopeWritesThePlainKey) {
    write("enabled", true);
    EXPECT_EQ(stored(), (Dictionary{{"enabled", true}}));
}

TEST_F(ScopedWriteTest, AppScopeWritesTheApplicationsKey) {
    store({{"enabled", true}});
    chooseApp();
    write("enabled", false);
    EXPECT_EQ(stored(), (Dictionary{{"com.example.app_enabled", false}, {"enabled", true}}));
}

TEST_F(ScopedWriteTest, AppScopeWithoutApplicationWritesThePlainKey) {
    enterAppScope();
    write("enabled", false);
    EXPECT_EQ(stored(), (Dictionary{{"enabled", false}}));
}

TEST_F(ScopedWriteTest, ApplicationIsIgnoredInSystemScope) {
    page->setScopeId(exampleApp);
    write("enabled", false);
    EXPECT_EQ(stored(), (Dictionary{{"enabled", false}}));
}

TEST_F(ScopedWriteTest, AllOtherEntriesAreKept) {
    const Dictionary kept{{"b", 2}, {"a", "text"}, {"nested", Dictionary{{"x", Array{1, 2.5}}}}};
    store(kept);
    write("enabled", true);
    auto expected = kept;
    expected["enabled"] = true;
    EXPECT_EQ(stored(), expected);
}

TEST_F(ScopedWriteTest, ValueReplacesTheOldOneAndItsKind) {
    store({{"enabled", true}});
    write("enabled", 2);
    EXPECT_EQ(stored(), (Dictionary{{"enabled", 2}}));
}

TEST_F(ScopedWriteTest, WritingNothingDoesNothing) {
    store({{"enabled", true}});
    chooseApp();
    write("scope_enabled", {});
    EXPECT_TRUE(effects.empty());
    EXPECT_EQ(now().count(), 0);
    EXPECT_EQ(stored(), (Dictionary{{"enabled", true}}));
}

TEST_F(ScopedWriteTest, FileIsWrittenOnceAndAtomically) {
    write("enabled", true);
    EXPECT_EQ(device.writeModes, (std::vector{WriteMode::atomically}));
}

TEST_F(ScopedWriteTest, FileIsWrittenBeforeThePost) {
    write("enabled", true);
    EXPECT_EQ(timeline(), (Lines{"0 ms write /User/Library/Preferences/com.corvane.prismo2.plist",
                                 "0 ms post com.corvane.prismo2.changed"}));
}

TEST_F(ScopedWriteTest, NotificationHasNoObject) {
    write("enabled", true);
    EXPECT_EQ(effects.back().effect, (Effect{"post", {{"name", "com.corvane.prismo2.changed"}}}));
}

TEST_F(ScopedWriteTest, RowNamesTheNotification) {
    const auto row = switchRow(page, "enabled");
    row->setProperty("com.example.other", "PostNotification");
    page->setPreferenceValue(true, row);
    EXPECT_EQ(timeline({"post"}), (Lines{"0 ms post com.example.other"}));
}

TEST_F(ScopedWriteTest, RowWithoutPostNotificationIsStoredWithoutAPost) {
    const auto row = switchRow(page, "enabled");
    row->setProperty({}, "PostNotification");
    page->setPreferenceValue(true, row);
    EXPECT_EQ(stored(), (Dictionary{{"enabled", true}}));
    EXPECT_TRUE(timeline({"post"}).empty());
}

TEST_F(ScopedWriteTest, ScopeEnabledWritesThenReloadsThenPosts) {
    chooseApp();
    write("scope_enabled", true);
    EXPECT_EQ(stored(), (Dictionary{{"com.example.app_scope_enabled", true}}));
    EXPECT_EQ(timeline(),
              (Lines{"0 ms write /User/Library/Preferences/com.corvane.prismo2.plist",
                     "35 ms reload Prismo2PrefsListController", "35 ms post com.corvane.prismo2.changed"}));
}

TEST_F(ScopedWriteTest, PageSettlesForExactlyThirtyFiveMilliseconds) {
    chooseApp();
    write("scope_enabled", true);
    EXPECT_EQ(now(), std::chrono::microseconds(35000));
}

TEST_F(ScopedWriteTest, RunLoopRunsWhileThePageSettles) {
    chooseApp();
    bool storedBefore = false;
    device.runLoop().schedule(Seconds(0.02), [&] { storedBefore = stored().has_value(); });
    write("scope_enabled", true);
    EXPECT_TRUE(storedBefore);
}

TEST_F(ScopedWriteTest, ReloadedRowsShowTheNewValue) {
    store({{"com.example.app_scope_enabled", true}});
    chooseApp();
    EXPECT_TRUE(rowNamed("Global Color")->isEnabled());
    page->setPreferenceValue(false, rowOfKey("scope_enabled"));
    EXPECT_FALSE(rowNamed("Global Color")->isEnabled());
}

TEST_F(ScopedWriteTest, OtherKeysReloadNothing) {
    chooseApp();
    for (const auto* key : {"enabled", "scope_enabled_2", "scope_Enabled", "scope"})
        write(key, true);
    EXPECT_TRUE(timeline({"reload"}).empty());
    EXPECT_EQ(now().count(), 0);
}

TEST_F(ScopedWriteTest, ScopeEnabledInSystemScopeReloadsNothing) {
    page->setScopeId(exampleApp);
    write("scope_enabled", true);
    EXPECT_TRUE(timeline({"reload"}).empty());
    EXPECT_EQ(now().count(), 0);
}

TEST_F(ScopedWriteTest, ScopeEnabledWithoutApplicationReloads) {
    enterAppScope();
    write("scope_enabled", true);
    EXPECT_EQ(timeline({"reload"}).size(), 1U);
}

TEST_F(ScopedWriteTest, KeyThatMerelyEndsWithScopeEnabledReloadsToo) {
    chooseApp();
    write("other_scope_enabled", true);
    EXPECT_EQ(stored(), (Dictionary{{"com.example.app_other_scope_enabled", true}}));
    EXPECT_EQ(timeline({"reload"}).size(), 1U);
}

TEST_F(ScopedWriteTest, SuffixIsMatchedAgainstTheScopedKey) {
    chooseApp("com.example.scope");
    write("enabled", true);
    EXPECT_EQ(stored(), (Dictionary{{"com.example.scope_enabled", true}}));
    EXPECT_EQ(timeline({"reload"}).size(), 1U);
}

TEST_F(ScopedWriteTest, RowWithoutAKeyDoesNothing) {
    page->setPreferenceValue(true, keylessRow(page));
    EXPECT_TRUE(effects.empty());
    EXPECT_EQ(stored(), std::nullopt);
}

TEST_F(ScopedWriteTest, RowWithoutAKeyStoresUnderNullInAppScope) {
    chooseApp();
    const auto row = keylessRow(page);
    page->setPreferenceValue(true, row);
    EXPECT_EQ(stored(), (Dictionary{{"com.example.app_(null)", true}}));
    EXPECT_EQ(page->readPreferenceValue(row), Value(true));
}

TEST_F(ScopedWriteTest, MissingFileIsCreated) {
    EXPECT_EQ(stored(), std::nullopt);
    write("enabled", true);
    EXPECT_TRUE(stored().has_value());
}

TEST_F(ScopedWriteTest, WriteReplacesAMalformedFile) {
    device.setFile(settingsFilePath, {'n', 'o'});
    write("enabled", true);
    EXPECT_EQ(stored(), (Dictionary{{"enabled", true}}));
}

TEST_F(ScopedWriteTest, WriteReplacesAnUnreadableFile) {
    store({{"global_color", "#112233:1.000000"}});
    device.failReads(settingsFilePath, "Permission denied");
    write("enabled", true);
    device.failReads(settingsFilePath, "");
    EXPECT_EQ(stored(), (Dictionary{{"enabled", true}}));
}

TEST_F(ScopedWriteTest, FailedWriteStillPosts) {
    store({{"enabled", false}});
    device.failWrites(settingsFilePath, "No space left on device");
    write("enabled", true);
    EXPECT_EQ(timeline(), (Lines{"0 ms post com.corvane.prismo2.changed"}));
    EXPECT_EQ(stored(), (Dictionary{{"enabled", false}}));
}

TEST_F(ScopedWriteTest, FailedWriteOfScopeEnabledStillReloads) {
    device.failWrites(settingsFilePath, "No space left on device");
    chooseApp();
    write("scope_enabled", true);
    EXPECT_EQ(timeline(),
              (Lines{"35 ms reload Prismo2PrefsListController", "35 ms post com.corvane.prismo2.changed"}));
}

TEST_F(ScopedWriteTest, ListenerReadsTheNewValue) {
    static Value delivered;
    delivered = {};
    const auto listener = std::make_shared<NSObject>();
    CFNotificationCenterGetDarwinNotifyCenter().addObserver(
        listener, [](const auto&) { delivered = valueForKey(loadSettings(), "enabled"); }, changeNotification,
        SuspensionBehavior::deliverImmediately);
    write("enabled", 3);
    EXPECT_EQ(delivered, Value()) << "delivered during the write";
    runFor(0);
    EXPECT_EQ(delivered, Value(3));
}

TEST_F(ScopedWriteTest, RowSetterReachesThePage) {
    switchRow(page, "enabled")->performSetterWithValue(false);
    EXPECT_EQ(stored(), (Dictionary{{"enabled", false}}));
}

} // namespace
} // namespace prismo
