// The store and its file. Its notification is PrefsManagerNotificationTest.

#include "prefs/PHPrefsManager.h"
#include "tests/support/MemoryWorld.h"

#include <type_traits>

namespace prismo {
namespace {

struct PrefsManagerTest : MemoryWorld {
    static constexpr const char* path = "/var/mobile/Library/Preferences/com.example.x.plist";
    static constexpr const char* otherPath = "/var/mobile/Library/Preferences/com.example.other.plist";

    std::shared_ptr<PHPrefsManager> make() {
        return PHPrefsManager::initWithId("com.example.x", defaults, std::nullopt, nullptr);
    }
    static std::shared_ptr<PSSpecifier> row(const std::string& key, Value defaultValue = {}) {
        auto result = PSSpecifier::preferenceSpecifierNamed("Row", nullptr, "", "", nullptr,
                                                            PSCellType::switchCell, nullptr);
        result->setProperty(key, "key");
        result->setProperty(std::move(defaultValue), "default");
        return result;
    }

    Dictionary defaults{{"color", "#ffffff"}, {"enabled", true}, {"size", 3}};
};

TEST_F(PrefsManagerTest, FileIsNamedAfterTheIdentifier) { EXPECT_EQ(make()->plistPath(), path); }

TEST_F(PrefsManagerTest, IdentifierIsReturnedAsGiven) {
    EXPECT_EQ(PHPrefsManager::initWithId("a.b.c", {}, std::nullopt, nullptr)->identifier(), "a.b.c");
}

TEST_F(PrefsManagerTest, IdentifierFollowsThePath) {
    const auto store = make();
    store->setPlistPath("/private/some.dir/other.name.plist");
    EXPECT_EQ(store->identifier(), "other.name");
}

TEST_F(PrefsManagerTest, StoreWithAnotherPathReadsOnlyThatFile) {
    device.setPropertyList(path, {{"size", 5}});
    device.setPropertyList(otherPath, {{"size", 7}});
    const auto store = PHPrefsManager::initWithPath(otherPath, defaults, std::nullopt, nullptr);
    EXPECT_EQ(store->intForKey("size"), 7);
    EXPECT_EQ(device.propertyListReads(path), 0);
}

TEST_F(PrefsManagerTest, StoreWithAnotherPathKeepsNoCallbackWithoutANotification) {
    const PHPrefsManager::Callback callback = [](PHPrefsManager&) {};
    const auto store = PHPrefsManager::initWithPath(otherPath, {}, std::nullopt, &callback);
    EXPECT_EQ(store->notificationCallback(), nullptr);
}

TEST_F(PrefsManagerTest, FileOverlaysTheDefaults) {
    device.setPropertyList(path, {{"size", 5}, {"extra", "more"}});
    const Dictionary merged{{"color", "#ffffff"}, {"enabled", true}, {"extra", "more"}, {"size", 5}};
    EXPECT_EQ(make()->currentPrefsImplementation(), merged);
}

TEST_F(PrefsManagerTest, WithoutAFileOnlyTheDefaultsApply) {
    EXPECT_EQ(make()->currentPrefsImplementation(), defaults);
}

TEST_F(PrefsManagerTest, UnreadableFileReadsAsEmpty) {
    device.setPropertyList(path, {{"size", 5}});
    device.failReads(path, "Permission denied");
    EXPECT_EQ(make()->currentPrefsImplementation(), defaults);
}

TEST_F(PrefsManagerTest, MalformedFileReadsAsEmpty) {
    device.setFile(path, {'n', 'o'});
    EXPECT_EQ(make()->currentPrefsImplementation(), defaults);
}

TEST_F(PrefsManagerTest, CreationReadsTheFileOnceAndWritesNothing) {
    make();
    EXPECT_EQ(device.propertyListReads(path), 1);
    EXPECT_TRUE(effects.empty());
}

TEST_F(PrefsManagerTest, LookupsDoNotReadTheFile) {
    const auto store = make();
    store->objectForKey("size");
    store->boolForKey("enabled");
    EXPECT_EQ(device.propertyListReads(path), 1);
}

TEST_F(PrefsManagerTest, KeepsItsOwnCopyOfTheDefaults) {
    const auto store = make();
    defaults["size"] = 9;
    store->updateCurrentImplementation();
    EXPECT_EQ(store->intForKey("size"), 3);
    EXPECT_EQ(store->defaultValues().at("size"), Value(3));
}

TEST_F(PrefsManagerTest, MissingKeyReadsAsNothingFalseAndZero) {
    const auto store = make();
    EXPECT_EQ(store->objectForKey("gone"), Value());
    EXPECT_EQ(store->boolForKey("gone"), false);
    EXPECT_EQ(store->floatForKey("gone"), 0.0F);
    EXPECT_EQ(store->intForKey("gone"), 0);
}

TEST_F(PrefsManagerTest, LookupsAreTyped) {
    static_assert(std::is_same_v<decltype(make()->boolForKey("")), bool>);
    static_assert(std::is_same_v<decltype(make()->floatForKey("")), float>);
    static_assert(std::is_same_v<decltype(make()->intForKey("")), std::int32_t>);
    device.setPropertyList(path, {{"real", 2.75}, {"wide", (std::int64_t{1} << 32) + 5}});
    const auto store = make();
    EXPECT_TRUE(store->boolForKey("enabled"));
    EXPECT_EQ(store->floatForKey("real"), 2.75F);
    EXPECT_EQ(store->intForKey("real"), 2);
    EXPECT_EQ(store->intForKey("wide"), 5);
    EXPECT_EQ(store->objectForKey("real"), Value(2.75));
}

TEST_F(PrefsManagerTest, TextReadsAsItsLeadingNumber) {
    device.setPropertyList(path, {{"text", "1"}, {"length", "2.5px"}});
    const auto store = make();
    EXPECT_TRUE(store->boolForKey("text"));
    EXPECT_EQ(store->intForKey("text"), 1);
    EXPECT_EQ(store->floatForKey("length"), 2.5F);
    EXPECT_EQ(store->intForKey("length"), 2);
}

TEST_F(PrefsManagerTest, ChangesStayInMemory) {
    device.setPropertyList(path, {{"size", 5}});
    const auto store = make();
    store->setObject(7, "size");
    store->removeObjectForKey("color");
    EXPECT_EQ(store->currentPrefsImplementation(), (Dictionary{{"enabled", true}, {"size", 7}}));
    EXPECT_EQ(device.readPropertyList(path), (Dictionary{{"size", 5}}));
    EXPECT_TRUE(effects.empty());
}

TEST_F(PrefsManagerTest, SettingNothingChangesNothing) {
    const auto store = make();
    store->setObject({}, "size");
    store->setObject({}, "new");
    EXPECT_EQ(store->currentPrefsImplementation(), defaults);
}

TEST_F(PrefsManagerTest, RemovingAMissingKeyChangesNothing) {
    const auto store = make();
    store->removeObjectForKey("gone");
    EXPECT_EQ(store->currentPrefsImplementation(), defaults);
}

TEST_F(PrefsManagerTest, ReloadDiscardsUnsavedChangesAndShowsTheFile) {
    device.setPropertyList(path, {{"size", 5}, {"extra", 1}});
    const auto store = make();
    store->setObject(7, "size");
    store->setObject("new", "unsaved");
    store->removeObjectForKey("color");
    device.setPropertyList(path, {{"enabled", false}});
    store->updateCurrentImplementation();
    EXPECT_EQ(store->currentPrefsImplementation(),
              (Dictionary{{"color", "#ffffff"}, {"enabled", false}, {"size", 3}}));
}

TEST_F(PrefsManagerTest, NewDefaultsApplyFromTheNextReload) {
    const auto store = make();
    store->setDefaultValues({{"size", 4}});
    EXPECT_EQ(store->currentPrefsImplementation(), defaults);
    store->updateCurrentImplementation();
    EXPECT_EQ(store->currentPrefsImplementation(), (Dictionary{{"size", 4}}));
}

TEST_F(PrefsManagerTest, NewPathReloadsAtOnceWithTheSameDefaults) {
    device.setPropertyList(path, {{"size", 5}, {"extra", 1}});
    device.setPropertyList(otherPath, {{"color", "#000000"}});
    const auto store = make();
    store->setObject(7, "size");
    store->setPlistPath(otherPath);
    EXPECT_EQ(store->currentPrefsImplementation(),
              (Dictionary{{"color", "#000000"}, {"enabled", true}, {"size", 3}}));
    EXPECT_EQ(store->plistPath(), otherPath);
    EXPECT_TRUE(effects.empty());
}

TEST_F(PrefsManagerTest, EmptyPathMeansNoFile) {
    device.setPropertyList("", {{"size", 5}});
    const auto store = make();
    store->setPlistPath("");
    EXPECT_EQ(store->currentPrefsImplementation(), defaults);
    EXPECT_EQ(device.propertyListReads(""), 0);
}

TEST_F(PrefsManagerTest, SaveWritesTheWholeViewInPlace) {
    device.setPropertyList(path, {{"extra", 1}});
    const auto store = make();
    store->setObject(7, "size");
    store->removeObjectForKey("color");
    store->save();
    EXPECT_EQ(device.readPropertyList(path), (Dictionary{{"enabled", true}, {"extra", 1}, {"size", 7}}));
    EXPECT_EQ(device.writeModes, (std::vector{WriteMode::inPlace}));
    EXPECT_EQ(timeline(), (std::vector<std::string>{std::string("0 ms write ") + path}));
}

TEST_F(PrefsManagerTest, SaveWritesToTheCurrentPath) {
    const auto store = make();
    store->setPlistPath(otherPath);
    store->save();
    EXPECT_EQ(device.readPropertyList(otherPath), defaults);
    EXPECT_EQ(device.readPropertyList(path), std::nullopt);
}

TEST_F(PrefsManagerTest, FailedSaveIsSilentAndKeepsTheChange) {
    device.failWrites(path, "No space left on device");
    const auto store = make();
    store->setObject(7, "size");
    store->save();
    EXPECT_EQ(store->intForKey("size"), 7);
    EXPECT_TRUE(effects.empty());
}

TEST_F(PrefsManagerTest, WholeViewCanBeReplaced) {
    const auto store = make();
    store->setCurrentPrefsImplementation({{"only", 1}});
    EXPECT_EQ(store->objectForKey("size"), Value());
    store->save();
    EXPECT_EQ(device.readPropertyList(path), (Dictionary{{"only", 1}}));
}

TEST_F(PrefsManagerTest, RowReadsTheStoredValue) {
    device.setPropertyList(path, {{"enabled", false}, {"size", 0}});
    const auto store = make();
    EXPECT_EQ(store->readPreferenceValue(row("enabled", true)), Value(false));
    EXPECT_EQ(store->readPreferenceValue(row("size", 8)), Value(0));
}

TEST_F(PrefsManagerTest, StoreDefaultTakesPrecedenceOverRowDefault) {
    EXPECT_EQ(make()->readPreferenceValue(row("size", 8)), Value(3));
}

TEST_F(PrefsManagerTest, RowReadsItsDefaultIfTheStoreHasNoValue) {
    EXPECT_EQ(make()->readPreferenceValue(row("gone", 8)), Value(8));
    EXPECT_EQ(make()->readPreferenceValue(row("gone")), Value());
}

TEST_F(PrefsManagerTest, MissingRowReadsAsNothing) {
    EXPECT_EQ(make()->readPreferenceValue(nullptr), Value());
}

TEST_F(PrefsManagerTest, RowWritesItsValueToTheFile) {
    const auto store = make();
    store->setPreferenceValue(7, row("size"));
    EXPECT_EQ(store->intForKey("size"), 7);
    EXPECT_EQ(device.readPropertyList(path),
              (Dictionary{{"color", "#ffffff"}, {"enabled", true}, {"size", 7}}));
}

TEST_F(PrefsManagerTest, MissingRowWritesNothing) {
    const auto store = make();
    store->setPreferenceValue(7, nullptr);
    EXPECT_TRUE(effects.empty());
    EXPECT_EQ(store->currentPrefsImplementation(), defaults);
}

TEST_F(PrefsManagerTest, RowWithoutAKeyReadsAsItsDefaultAndWritesNothing) {
    device.setPropertyList(path, {{"", 7}});
    const auto store = make();
    const auto keyless = row("", 8);
    keyless->setProperty({}, "key");
    EXPECT_EQ(store->readPreferenceValue(keyless), Value(8));
    store->setPreferenceValue(9, keyless);
    EXPECT_TRUE(effects.empty());
}

TEST_F(PrefsManagerTest, CanBeTheTargetOfRows) {
    const auto store = make();
    auto shown = PSSpecifier::preferenceSpecifierNamed(
        "Row", store, "setPreferenceValue:specifier:", "readPreferenceValue:", nullptr,
        PSCellType::switchCell, nullptr);
    shown->setProperty("size", "key");
    shown->performSetterWithValue(7);
    EXPECT_EQ(shown->performGetter(), Value(7));
    EXPECT_EQ(device.readPropertyList(path)->at("size"), Value(7));
}

TEST_F(PrefsManagerTest, ReleaseReadsAndWritesNothing) {
    auto store = make();
    store->setObject(7, "size");
    store = nullptr;
    EXPECT_EQ(device.propertyListReads(path), 1);
    EXPECT_TRUE(effects.empty());
}

TEST_F(PrefsManagerTest, DerivesFromTheRootClass) {
    const auto& made = make()->isa();
    EXPECT_EQ(made.name(), "PHPrefsManager");
    EXPECT_EQ(made.superclass(), &NSObject::classObject());
    EXPECT_EQ(&made.create()->isa(), &made);
}

} // namespace
} // namespace prismo
