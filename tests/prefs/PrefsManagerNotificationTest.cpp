#include "prefs/PHPrefsManager.h"
#include "tests/support/MemoryWorld.h"

namespace prismo {
namespace {

using Lines = std::vector<std::string>;

struct PrefsManagerNotificationTest : MemoryWorld {
    static constexpr const char* path = "/var/mobile/Library/Preferences/com.example.x.plist";
    static constexpr const char* changed = "com.example.x.changed";

    std::shared_ptr<PHPrefsManager> make(const std::optional<std::string>& notification = changed) {
        return PHPrefsManager::initWithId("com.example.x", {{"size", 3}}, notification, &callback);
    }
    void storeSize(int size) { device.setPropertyList(path, {{"size", size}}); }
    void postFromOutside(const std::string& name = changed) {
        device.postFromOutside(name);
        runFor(0);
    }

    std::vector<PHPrefsManager*> called;
    std::vector<int> sizesSeen;
    PHPrefsManager::Callback callback = [this](PHPrefsManager& store) {
        called.push_back(&store);
        sizesSeen.push_back(store.intForKey("size"));
    };
};

TEST_F(PrefsManagerNotificationTest, NotifyingPostsOnlyTheName) {
    make()->notifyEveryone();
    ASSERT_EQ(effects.size(), 1U);
    EXPECT_EQ(effects[0].effect, (Effect{"post", {{"name", "com.example.x.changed"}}}));
}

TEST_F(PrefsManagerNotificationTest, SavingComesBeforeNotifying) {
    make()->saveAndNotify();
    EXPECT_EQ(timeline(), (Lines{"0 ms write /var/mobile/Library/Preferences/com.example.x.plist",
                                 "0 ms post com.example.x.changed"}));
}

TEST_F(PrefsManagerNotificationTest, SavingAloneDoesNotNotify) {
    make()->save();
    EXPECT_TRUE(timeline({"post"}).empty());
}

TEST_F(PrefsManagerNotificationTest, FailedSaveStillNotifies) {
    device.failWrites(path, "No space left on device");
    make()->saveAndNotify();
    EXPECT_EQ(timeline(), (Lines{"0 ms post com.example.x.changed"}));
}

TEST_F(PrefsManagerNotificationTest, SettingARowSavesAndThenNotifies) {
    const auto row = PSSpecifier::preferenceSpecifierNamed("Row", nullptr, "", "", nullptr,
                                                           PSCellType::switchCell, nullptr);
    row->setProperty("size", "key");
    make()->setPreferenceValue(7, row);
    EXPECT_EQ(device.readPropertyList(path), (Dictionary{{"size", 7}}));
    EXPECT_EQ(timeline(), (Lines{"0 ms write /var/mobile/Library/Preferences/com.example.x.plist",
                                 "0 ms post com.example.x.changed"}));
}

TEST_F(PrefsManagerNotificationTest, ReloadComesBeforeTheCallback) {
    const auto store = make();
    storeSize(5);
    postFromOutside();
    EXPECT_EQ(sizesSeen, (std::vector{5}));
    EXPECT_EQ(called, (std::vector{store.get()}));
}

TEST_F(PrefsManagerNotificationTest, EveryNotificationCallsBack) {
    const auto store = make();
    postFromOutside();
    postFromOutside();
    EXPECT_EQ(called.size(), 2U);
    EXPECT_EQ(device.propertyListReads(path), 3);
}

TEST_F(PrefsManagerNotificationTest, OtherNotificationsAreIgnored) {
    const auto store = make();
    postFromOutside("com.example.other.changed");
    EXPECT_TRUE(called.empty());
    EXPECT_EQ(device.propertyListReads(path), 1);
}

TEST_F(PrefsManagerNotificationTest, NotificationDiscardsUnsavedChanges) {
    const auto store = make();
    store->setObject(7, "size");
    postFromOutside();
    EXPECT_EQ(store->intForKey("size"), 3);
}

TEST_F(PrefsManagerNotificationTest, WriterReceivesItsOwnNotification) {
    const auto store = make();
    store->setObject(7, "size");
    store->saveAndNotify();
    EXPECT_TRUE(called.empty());
    runFor(0);
    EXPECT_EQ(sizesSeen, (std::vector{7}));
}

TEST_F(PrefsManagerNotificationTest, SaveNotifiesEveryStoreOfTheFile) {
    const auto writer = make();
    const auto reader = make();
    writer->setObject(7, "size");
    writer->saveAndNotify();
    runFor(0);
    EXPECT_EQ(reader->intForKey("size"), 7);
    EXPECT_EQ(called, (std::vector{writer.get(), reader.get()}));
}

TEST_F(PrefsManagerNotificationTest, WithoutANameNothingIsPosted) {
    make(std::nullopt)->notifyEveryone();
    EXPECT_TRUE(effects.empty());
}

TEST_F(PrefsManagerNotificationTest, WithoutANameNoCallbackIsKept) {
    const auto store = make(std::nullopt);
    EXPECT_EQ(store->notificationCallback(), nullptr);
    EXPECT_EQ(store->notificationName(), std::nullopt);
    store->notificationReceived();
    EXPECT_TRUE(called.empty());
}

TEST_F(PrefsManagerNotificationTest, WithoutANameNothingIsObserved) {
    const auto store = make(std::nullopt);
    postFromOutside();
    EXPECT_EQ(device.propertyListReads(path), 1);
}

TEST_F(PrefsManagerNotificationTest, EmptyNameIsNeitherPostedNorObserved) {
    const auto store = make("");
    store->notifyEveryone();
    postFromOutside("");
    EXPECT_TRUE(effects.empty());
    EXPECT_TRUE(called.empty());
}

TEST_F(PrefsManagerNotificationTest, ClearingTheNameStopsPosting) {
    const auto store = make();
    store->setNotificationName(std::nullopt);
    store->notifyEveryone();
    EXPECT_TRUE(effects.empty());
}

TEST_F(PrefsManagerNotificationTest, CallbackIsNotCopied) {
    const auto store = make();
    EXPECT_EQ(store->notificationCallback(), &callback);
    int replaced = 0;
    callback = [&](PHPrefsManager&) { ++replaced; };
    postFromOutside();
    EXPECT_EQ(replaced, 1);
}

TEST_F(PrefsManagerNotificationTest, CallbackCanBeReplaced) {
    const auto store = make();
    int replaced = 0;
    const PHPrefsManager::Callback other = [&](PHPrefsManager&) { ++replaced; };
    store->setNotificationCallback(&other);
    postFromOutside();
    EXPECT_EQ(replaced, 1);
    EXPECT_TRUE(called.empty());
}

TEST_F(PrefsManagerNotificationTest, WithoutACallbackItStillReloads) {
    const auto store = PHPrefsManager::initWithId("com.example.x", {}, changed, nullptr);
    storeSize(5);
    postFromOutside();
    EXPECT_EQ(store->intForKey("size"), 5);
}

TEST_F(PrefsManagerNotificationTest, EmptyCallbackIsNotCalled) {
    callback = nullptr;
    const auto store = make();
    storeSize(5);
    postFromOutside();
    EXPECT_EQ(store->intForKey("size"), 5);
}

TEST_F(PrefsManagerNotificationTest, PostsWhileSuspendedAreCoalesced) {
    const auto store = make();
    device.systemCenter().setSuspended(true);
    postFromOutside();
    postFromOutside();
    EXPECT_TRUE(called.empty());
    device.systemCenter().setSuspended(false);
    EXPECT_EQ(called.size(), 1U);
}

TEST_F(PrefsManagerNotificationTest, ReleasedStoreIsNotNotified) {
    make();
    postFromOutside();
    EXPECT_TRUE(called.empty());
    EXPECT_EQ(device.propertyListReads(path), 1);
}

TEST_F(PrefsManagerNotificationTest, StoreReleasedBeforeDeliveryIsNotNotified) {
    auto store = make();
    device.postFromOutside(changed);
    store = nullptr;
    runFor(0);
    EXPECT_TRUE(called.empty());
}

TEST_F(PrefsManagerNotificationTest, ObserverThatIsNotAStoreIsIgnored) {
    prefsManagerNotified(nullptr);
    prefsManagerNotified(std::make_shared<NSObject>());
    EXPECT_TRUE(called.empty());
    EXPECT_EQ(device.propertyListReads(path), 0);
}

TEST_F(PrefsManagerNotificationTest, ObserverThatIsAStoreIsNotified) {
    const auto store = make();
    prefsManagerNotified(store);
    EXPECT_EQ(called.size(), 1U);
}

} // namespace
} // namespace prismo
