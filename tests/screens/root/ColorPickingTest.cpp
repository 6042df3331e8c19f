#include "tests/support/World.h"

#include "platform/swatchkit/ColorText.h"
#include "platform/swatchkit/SWColorAlert.h"

namespace prismo {
namespace {

using Lines = std::vector<std::string>;

struct ColorPickingTest : World {
    static std::shared_ptr<PSSpecifier> colorRow(Value fallback = "#de3027") {
        auto row = PSSpecifier::preferenceSpecifierNamed("Keyboard Color", nullptr, "", "", nullptr,
                                                         PSCellType::link, nullptr);
        row->setProperty("keyboard_color", "prismo_key");
        row->setProperty(std::move(fallback), "prismo_dc");
        return row;
    }
    std::shared_ptr<SWColorAlert> open(const std::shared_ptr<PSSpecifier>& row = colorRow()) {
        page->chooseColor(row);
        auto picker = topmostPresented<SWColorAlert>();
        if (!picker) throw std::logic_error("no picker");
        return picker;
    }
    void choose(const char* text) {
        const auto picker = open();
        picker->setColor(colorFromText(text).value());
        picker->accept();
    }
};

TEST_F(ColorPickingTest, PickerStartsAtTheStoredColor) {
    store({{"keyboard_color", "#102030:0.500000"}});
    EXPECT_EQ(open()->startColor(), colorFromText("#102030:0.5"));
}

TEST_F(ColorPickingTest, PickerStartsAtTheFallbackIfNothingIsStored) {
    EXPECT_EQ(open()->startColor(), colorFromText("#de3027"));
}

TEST_F(ColorPickingTest, PickerStartsAtWhiteWithoutAFallback) {
    EXPECT_EQ(open(colorRow({}))->startColor(), UIColor::whiteColor());
}

TEST_F(ColorPickingTest, RowWithoutAKeyStartsAtTheFallbackAndStoresNothing) {
    store({{"", "#102030:1.000000"}});
    const auto row = colorRow();
    row->setProperty({}, "prismo_key");
    const auto picker = open(row);
    EXPECT_EQ(picker->startColor(), colorFromText("#de3027"));
    picker->accept();
    EXPECT_TRUE(timeline().empty());
}

TEST_F(ColorPickingTest, PickerStartsAtTheFallbackIfTheFileIsUnreadable) {
    store({{"keyboard_color", "#102030:1.000000"}});
    device.failReads(settingsFilePath, "Permission denied");
    EXPECT_EQ(open()->startColor(), colorFromText("#de3027"));
}

TEST_F(ColorPickingTest, PickerHidesTheAlpha) { EXPECT_FALSE(open()->showsAlpha()); }

TEST_F(ColorPickingTest, OpeningWritesAndPostsNothing) {
    open();
    EXPECT_TRUE(timeline().empty());
}

TEST_F(ColorPickingTest, OpaqueColorIsStoredWithItsAlpha) {
    choose("#0aBc0D");
    EXPECT_EQ(stored(), (Dictionary{{"keyboard_color", "#0abc0d:1.000000"}}));
}

TEST_F(ColorPickingTest, AlphaIsStoredWithSixDecimals) {
    choose("#0abc0d:0.1234567");
    EXPECT_EQ(stored(), (Dictionary{{"keyboard_color", "#0abc0d:0.123457"}}));
}

TEST_F(ColorPickingTest, AcceptedStartColorKeepsTheStoredAlpha) {
    store({{"keyboard_color", "#102030:0.250000"}});
    open()->accept();
    EXPECT_EQ(stored(), (Dictionary{{"keyboard_color", "#102030:0.250000"}}));
}

TEST_F(ColorPickingTest, StoredTextReadsBackAsTheColor) {
    choose("#0abc0d:0.5");
    EXPECT_EQ(open()->startColor(), colorFromText("#0abc0d:0.5"));
}

TEST_F(ColorPickingTest, FileIsWrittenAtomicallyBeforeTheColorIsPosted) {
    choose("#0abc0d");
    EXPECT_EQ(device.writeModes, (std::vector{WriteMode::atomically}));
    EXPECT_EQ(timeline(), (Lines{"0 ms write /User/Library/Preferences/com.corvane.prismo2.plist",
                                 "0 ms post com.corvane.prismo2.changed"}));
    EXPECT_EQ(effects.back().effect.details,
              (Dictionary{{"name", "com.corvane.prismo2.changed"}, {"object", "#0abc0d:1.000000"}}));
}

TEST_F(ColorPickingTest, CanceledPickerWritesAndPostsNothing) {
    open()->cancel();
    EXPECT_TRUE(timeline().empty());
    EXPECT_EQ(stored(), std::nullopt);
}

TEST_F(ColorPickingTest, AllOtherEntriesAreKept) {
    store({{"enabled", false}, {"keyboard_color", "#102030:1.000000"}});
    choose("#ffffff");
    EXPECT_EQ(stored(), (Dictionary{{"enabled", false}, {"keyboard_color", "#ffffff:1.000000"}}));
}

TEST_F(ColorPickingTest, ChangesMadeWhileThePickerIsOpenAreOverwritten) {
    store({{"enabled", false}});
    const auto picker = open();
    store({{"enabled", true}, {"new", 1}});
    picker->setColor(UIColor::blackColor());
    picker->accept();
    EXPECT_EQ(stored(), (Dictionary{{"enabled", false}, {"keyboard_color", "#000000:1.000000"}}));
}

TEST_F(ColorPickingTest, FailedWriteStillPostsTheColor) {
    device.failWrites(settingsFilePath, "No space left on device");
    choose("#0abc0d");
    EXPECT_EQ(timeline(), (Lines{"0 ms post com.corvane.prismo2.changed"}));
}

TEST_F(ColorPickingTest, WriteReplacesAMalformedFile) {
    device.setFile(settingsFilePath, {'n', 'o'});
    choose("#0abc0d");
    EXPECT_EQ(stored(), (Dictionary{{"keyboard_color", "#0abc0d:1.000000"}}));
}

TEST_F(ColorPickingTest, RowThatFollowsTheGlobalColorStillPicksItsOwn) {
    store({{"global_color", "#445566:1.000000"}, {"keyboard_color", "#102030:1.000000"}});
    const auto row = colorRow();
    row->setName("<Using Global Color>");
    const auto picker = open(row);
    EXPECT_EQ(picker->startColor(), colorFromText("#102030"));
    picker->setColor(UIColor::blackColor());
    picker->accept();
    EXPECT_EQ(stored(),
              (Dictionary{{"global_color", "#445566:1.000000"}, {"keyboard_color", "#000000:1.000000"}}));
}

TEST_F(ColorPickingTest, KeyIsUsedUnchangedInAppScope) {
    chooseApp();
    choose("#0abc0d");
    EXPECT_EQ(stored(), (Dictionary{{"keyboard_color", "#0abc0d:1.000000"}}));
}

TEST_F(ColorPickingTest, ColorRowInAppScopeStoresTheApplicationsColor) {
    chooseApp();
    show();
    tap(*page, *rowNamed("Global Color"));
    const auto picker = topmostPresented<SWColorAlert>();
    ASSERT_TRUE(picker);
    picker->accept();
    EXPECT_EQ(stored(), (Dictionary{{"com.example.app_global_color", "#de3027:1.000000"}}));
}

TEST_F(ColorPickingTest, DisabledColorRowOpensNoPicker) {
    show();
    tap(*page, *colorRowOf("keyboard"));
    EXPECT_FALSE(topmostPresented<SWColorAlert>());
}

TEST_F(ColorPickingTest, PickerOutlivesThePage) {
    const auto picker = open();
    page = nullptr;
    picker->accept();
    EXPECT_EQ(stored(), (Dictionary{{"keyboard_color", "#de3027:1.000000"}}));
}

} // namespace
} // namespace prismo
