// What the color type chooser reads and writes.

#include "screens/colortype/PrismoTypeItemsController.h"
#include "tests/support/World.h"

namespace prismo {
namespace {

using Lines = std::vector<std::string>;

struct TypeChooserTest : World {
    TypeChooserTest() { chooser->setParentController(page); }

    static std::shared_ptr<PSSpecifier> row(const std::string& key = "kb_type") {
        return switchRow(nullptr, key, 0);
    }
    Value read(const std::string& key = "kb_type") { return chooser->readPreferenceValue(row(key)); }
    void write(const Value& value, const std::string& key = "kb_type") {
        chooser->setPreferenceValue(value, row(key));
    }
    /// Opens the chooser of the page's row with this name.
    std::shared_ptr<PrismoTypeItemsController> open(const std::string& rowName) {
        show();
        tap(*page, *rowNamed(rowName));
        return std::dynamic_pointer_cast<PrismoTypeItemsController>(navigation->topViewController());
    }
    static Lines checkedRows(PSListController& shown) {
        Lines names;
        for (std::size_t section = 0; section < shown.numberOfSectionsInTableView(*shown.table());
             ++section) {
            const auto cell = shown.table()->cellForRowAtIndexPath({section, 0});
            if (cell->accessoryType() == UITableViewCellAccessory::checkmark)
                names.push_back(cell->textLabel().text());
        }
        return names;
    }

    std::shared_ptr<PrismoTypeItemsController> chooser = std::make_shared<PrismoTypeItemsController>();
};

TEST_F(TypeChooserTest, SystemScopeReadsThePlainKey) {
    store({{"kb_type", 2}, {"com.example.app_kb_type", 1}});
    EXPECT_EQ(read(), Value(2));
}

TEST_F(TypeChooserTest, RowWithoutAKeyReadsAsItsDefaultAndStoresNothing) {
    store({{"", 2}});
    EXPECT_EQ(chooser->readPreferenceValue(keylessRow(nullptr, 0)), Value(0));
    chooser->setPreferenceValue(1, keylessRow(nullptr, 0));
    EXPECT_TRUE(effects.empty());
    EXPECT_EQ(stored(), (Dictionary{{"", 2}}));
}

TEST_F(TypeChooserTest, AppScopeReadsTheApplicationsKey) {
    store({{"kb_type", 2}, {"com.example.app_kb_type", 1}});
    chooseApp();
    EXPECT_EQ(read(), Value(1));
}

TEST_F(TypeChooserTest, ApplicationWithoutATypeReadsTheDefaultNotTheSystemWideType) {
    store({{"kb_type", 2}});
    chooseApp();
    EXPECT_EQ(read(), Value(0));
}

TEST_F(TypeChooserTest, AppScopeWithoutApplicationReadsThePlainKey) {
    store({{"kb_type", 2}});
    enterAppScope();
    EXPECT_EQ(read(), Value(2));
}

TEST_F(TypeChooserTest, ApplicationIsIgnoredInSystemScope) {
    store({{"kb_type", 2}, {"com.example.app_kb_type", 1}});
    page->setScopeId(exampleApp);
    EXPECT_EQ(read(), Value(2));
}

TEST_F(TypeChooserTest, NothingStoredReadsAsTheDefault) {
    EXPECT_EQ(read(), Value(0));
    const auto withoutDefault = row();
    withoutDefault->setProperty({}, "default");
    EXPECT_EQ(chooser->readPreferenceValue(withoutDefault), Value());
}

TEST_F(TypeChooserTest, UnreadableAndMalformedFilesReadAsEmpty) {
    store({{"kb_type", 2}});
    device.failReads(settingsFilePath, "Permission denied");
    EXPECT_EQ(read(), Value(0));
    device.failReads(settingsFilePath, "");
    device.setFile(settingsFilePath, {'n', 'o'});
    EXPECT_EQ(read(), Value(0));
}

TEST_F(TypeChooserTest, EveryReadLoadsTheFileAgain) {
    store({{"kb_type", 2}});
    EXPECT_EQ(read(), Value(2));
    store({{"kb_type", 1}});
    EXPECT_EQ(read(), Value(1));
}

TEST_F(TypeChooserTest, SystemScopeWritesThePlainKey) {
    write(2);
    EXPECT_EQ(stored(), (Dictionary{{"kb_type", 2}}));
}

TEST_F(TypeChooserTest, AppScopeWritesTheApplicationsKey) {
    chooseApp();
    write(2);
    EXPECT_EQ(stored(), (Dictionary{{"com.example.app_kb_type", 2}}));
}

TEST_F(TypeChooserTest, AppScopeWithoutApplicationWritesThePlainKey) {
    enterAppScope();
    write(2);
    EXPECT_EQ(stored(), (Dictionary{{"kb_type", 2}}));
}

TEST_F(TypeChooserTest, ChoosingKeepsAllOtherEntries) {
    store({{"enabled", false}, {"kb_type", 1}, {"x", "y"}});
    write(0);
    EXPECT_EQ(stored(), (Dictionary{{"enabled", false}, {"kb_type", 0}, {"x", "y"}}));
}

TEST_F(TypeChooserTest, WritingNothingDoesNothing) {
    write({});
    EXPECT_TRUE(effects.empty());
    EXPECT_EQ(stored(), std::nullopt);
}

TEST_F(TypeChooserTest, FileIsWrittenOnceAndAtomicallyBeforeThePost) {
    write(1);
    EXPECT_EQ(device.writeModes, (std::vector{WriteMode::atomically}));
    EXPECT_EQ(timeline(), (Lines{"0 ms write /User/Library/Preferences/com.corvane.prismo2.plist",
                                 "0 ms post com.corvane.prismo2.changed"}));
    EXPECT_EQ(effects.back().effect.details, (Dictionary{{"name", "com.corvane.prismo2.changed"}}));
}

TEST_F(TypeChooserTest, RowWithoutPostNotificationIsStoredWithoutAPost) {
    const auto silent = row();
    silent->setProperty({}, "PostNotification");
    chooser->setPreferenceValue(1, silent);
    EXPECT_EQ(stored(), (Dictionary{{"kb_type", 1}}));
    EXPECT_TRUE(timeline({"post"}).empty());
}

TEST_F(TypeChooserTest, RowNamesTheNotification) {
    const auto other = row();
    other->setProperty("com.example.other", "PostNotification");
    chooser->setPreferenceValue(1, other);
    EXPECT_EQ(timeline({"post"}), (Lines{"0 ms post com.example.other"}));
}

TEST_F(TypeChooserTest, FailedWriteStillPosts) {
    device.failWrites(settingsFilePath, "No space left on device");
    write(1);
    EXPECT_EQ(timeline(), (Lines{"0 ms post com.corvane.prismo2.changed"}));
}

TEST_F(TypeChooserTest, WriteReplacesAMalformedFile) {
    device.setFile(settingsFilePath, {'n', 'o'});
    write(1);
    EXPECT_EQ(stored(), (Dictionary{{"kb_type", 1}}));
}

TEST_F(TypeChooserTest, WritingDoesNotReload) {
    chooseApp();
    write(1, "scope_enabled");
    EXPECT_TRUE(timeline({"reload"}).empty());
    EXPECT_EQ(now().count(), 0);
}

TEST_F(TypeChooserTest, DefaultIsCheckedIfNothingIsStored) {
    EXPECT_EQ(checkedRows(*open("Keyboard Enabled")), (Lines{"Global"}));
}

TEST_F(TypeChooserTest, StoredTypeIsChecked) {
    store({{"keyboard_color_type", 2}});
    EXPECT_EQ(checkedRows(*open("Keyboard Enabled")), (Lines{"Custom"}));
}

TEST_F(TypeChooserTest, UnofferedTypeChecksNothing) {
    store({{"global_color_type", 2}});
    EXPECT_EQ(checkedRows(*open("Global Enabled")), Lines());
}

TEST_F(TypeChooserTest, TapStoresTheTypeAndMovesTheCheckmark) {
    const auto shown = open("Keyboard Enabled");
    tap(*shown, *shown->rows()->at(5));
    EXPECT_EQ(stored(), (Dictionary{{"keyboard_color_type", 2}}));
    EXPECT_EQ(checkedRows(*shown), (Lines{"Custom"}));
    EXPECT_EQ(timeline({"post"}), (Lines{"0 ms post com.corvane.prismo2.changed"}));
}

TEST_F(TypeChooserTest, TapOnGlobalStoresTheNumberZero) {
    const auto shown = open("Keyboard Enabled");
    tap(*shown, *shown->rows()->at(1));
    EXPECT_EQ(stored(), (Dictionary{{"keyboard_color_type", 0}}));
}

TEST_F(TypeChooserTest, TapInAppScopeStoresTheApplicationsType) {
    store({{"keyboard_color_type", 2}});
    chooseApp();
    const auto shown = open("Keyboard Enabled");
    EXPECT_EQ(checkedRows(*shown), (Lines{"Global"}));
    tap(*shown, *shown->rows()->at(3));
    EXPECT_EQ(stored(), (Dictionary{{"com.example.app_keyboard_color_type", 1}, {"keyboard_color_type", 2}}));
}

} // namespace
} // namespace prismo
