#include "tests/support/World.h"

namespace prismo {
namespace {

struct ScopedReadTest : World {
    Value read(const std::string& key, Value defaultValue = {}) {
        return page->readPreferenceValue(switchRow(page, key, std::move(defaultValue)));
    }
};

TEST_F(ScopedReadTest, NewPageIsInSystemScopeWithoutAnApplication) {
    EXPECT_FALSE(page->isInAppScope());
    EXPECT_EQ(page->scopeId(), std::nullopt);
}

TEST_F(ScopedReadTest, SystemScopeRowWithNothingStoredReadsAsItsDefault) {
    store({{"other", false}});
    EXPECT_EQ(read("enabled", true), Value(true));
}

TEST_F(ScopedReadTest, SystemScopeRowWithoutDefaultReadsAsNothing) { EXPECT_EQ(read("enabled"), Value()); }

TEST_F(ScopedReadTest, SystemScopeRowReadsTheStoredValue) {
    store({{"enabled", false}});
    EXPECT_EQ(read("enabled", true), Value(false));
}

TEST_F(ScopedReadTest, StoredValueKeepsItsKind) {
    store({{"a", 2}, {"b", "#112233:1.000000"}, {"c", true}});
    EXPECT_EQ(read("a"), Value(2));
    EXPECT_EQ(read("b"), Value("#112233:1.000000"));
    EXPECT_EQ(read("c"), Value(true));
}

TEST_F(ScopedReadTest, AppScopeRowReadsTheApplicationsOwnValue) {
    store({{"enabled", false}, {"com.example.app_enabled", true}});
    chooseApp();
    EXPECT_EQ(read("enabled"), Value(true));
}

TEST_F(ScopedReadTest, AppScopeRowFallsBackToTheSystemWideValue) {
    store({{"enabled", false}});
    chooseApp();
    EXPECT_EQ(read("enabled", true), Value(false));
}

TEST_F(ScopedReadTest, AppScopeRowWithNothingStoredReadsAsNothing) {
    store({{"other.app_enabled", true}});
    chooseApp();
    EXPECT_EQ(read("enabled", true), Value());
}

TEST_F(ScopedReadTest, AppScopeWithoutApplicationReadsThePlainKey) {
    store({{"enabled", false}, {"_enabled", true}, {"(null)_enabled", true}});
    enterAppScope();
    EXPECT_EQ(read("enabled", true), Value(false));
}

TEST_F(ScopedReadTest, AppScopeWithoutApplicationReadsTheDefaultIfNothingIsStored) {
    enterAppScope();
    EXPECT_EQ(read("enabled", true), Value(true));
}

TEST_F(ScopedReadTest, ApplicationIsIgnoredInSystemScope) {
    store({{"com.example.app_enabled", false}});
    page->setScopeId(exampleApp);
    EXPECT_EQ(read("enabled", true), Value(true));
}

TEST_F(ScopedReadTest, EveryReadLoadsTheFileOnce) {
    store({{"enabled", false}});
    EXPECT_EQ(read("enabled"), Value(false));
    store({{"enabled", true}});
    EXPECT_EQ(read("enabled"), Value(true));
    EXPECT_EQ(device.propertyListReads(settingsFilePath), 2);
}

TEST_F(ScopedReadTest, ReadsTheMobileUsersFile) {
    device.setPropertyList("/User/Library/Preferences/com.corvane.prismo2.plist", {{"enabled", 5}});
    EXPECT_EQ(read("enabled"), Value(5));
}

TEST_F(ScopedReadTest, UnreadableFileReadsAsEmpty) {
    store({{"enabled", false}});
    device.failReads(settingsFilePath, "Permission denied");
    EXPECT_EQ(read("enabled", true), Value(true));
}

TEST_F(ScopedReadTest, MalformedFileReadsAsEmpty) {
    device.setFile(settingsFilePath, {'n', 'o'});
    EXPECT_EQ(read("enabled", true), Value(true));
}

TEST_F(ScopedReadTest, RowWithoutAKeyReadsAsItsDefaultInSystemScope) {
    store({{"", false}});
    EXPECT_EQ(page->readPreferenceValue(keylessRow(page)), Value());
    EXPECT_EQ(page->readPreferenceValue(keylessRow(page, true)), Value(true));
}

TEST_F(ScopedReadTest, RowWithoutAKeyReadsAsNothingInAppScope) {
    store({{"", false}, {"com.example.app_", false}});
    chooseApp();
    EXPECT_EQ(page->readPreferenceValue(keylessRow(page, true)), Value());
}

TEST_F(ScopedReadTest, EmptyKeyIsAKey) {
    store({{"", false}});
    EXPECT_EQ(read("", true), Value(false));
}

TEST_F(ScopedReadTest, ReadingChangesNothingOnTheDevice) {
    chooseApp();
    read("enabled", true);
    EXPECT_TRUE(effects.empty());
    EXPECT_EQ(stored(), std::nullopt);
}

TEST_F(ScopedReadTest, RowGetterReachesThePage) {
    store({{"enabled", 7}});
    EXPECT_EQ(switchRow(page, "enabled")->performGetter(), Value(7));
}

} // namespace
} // namespace prismo
