#include "screens/root/PrismoColorCell.h"
#include "tests/support/World.h"

#include "platform/swatchkit/ColorText.h"

namespace prismo {
namespace {

struct ColorCellTest : World {
    static std::shared_ptr<PSSpecifier> colorRow(const std::string& name = "Keyboard Color",
                                                 Value fallback = "#de3027") {
        auto row =
            PSSpecifier::preferenceSpecifierNamed(name, nullptr, "", "", nullptr, PSCellType::link, nullptr);
        row->setProperty("keyboard_color", "prismo_key");
        row->setProperty(std::move(fallback), "prismo_dc");
        row->setProperty(changeNotification, "NotificationListener");
        return row;
    }
    static std::shared_ptr<PrismoColorCell> cellOf(std::shared_ptr<PSSpecifier> row) {
        auto cell = std::make_shared<PrismoColorCell>();
        cell->setSpecifier(std::move(row));
        return cell;
    }
    static UIColor color(const char* text) { return colorFromText(text).value(); }
};

TEST_F(ColorCellTest, ShowsTheColorStoredUnderTheRowsKey) {
    store({{"keyboard_color", "#102030:1.000000"}, {"global_color", "#ffffff:1.000000"}});
    const auto cell = cellOf(colorRow());
    EXPECT_EQ(cell->prefKey(), "keyboard_color");
    EXPECT_EQ(cell->previewColor(), color("#102030"));
}

TEST_F(ColorCellTest, RowThatFollowsTheGlobalColorShowsIt) {
    store({{"keyboard_color", "#102030:1.000000"}, {"global_color", "#445566:1.000000"}});
    const auto cell = cellOf(colorRow("<Using Global Color>"));
    EXPECT_EQ(cell->prefKey(), "global_color");
    EXPECT_EQ(cell->previewColor(), color("#445566"));
}

TEST_F(ColorCellTest, OnlyTheExactNameFollowsTheGlobalColor) {
    for (const auto* name : {"<using global color>", "<Using Global Color> ", "Using Global Color"})
        EXPECT_EQ(cellOf(colorRow(name))->prefKey(), "keyboard_color");
}

TEST_F(ColorCellTest, FollowedGlobalColorIsSystemWideEvenInAppScope) {
    store({{"com.example.app_global_color", "#000001"}, {"global_color", "#445566"}});
    chooseApp();
    EXPECT_EQ(cellOf(colorRowOf("keyboard"))->swatch(), color("#445566"));
}

TEST_F(ColorCellTest, AppScopeShowsTheApplicationsColor) {
    store({{"com.example.app_keyboard_color", "#102030:1.000000"},
           {"keyboard_color", "#445566:1.000000"},
           {"keyboard_color_type", 2}});
    chooseApp();
    EXPECT_EQ(cellOf(colorRowOf("keyboard"))->swatch(), color("#102030"));
}

TEST_F(ColorCellTest, RowWithoutAKeyShowsTheFallback) {
    store({{"", "#102030:1.000000"}});
    const auto row = colorRow();
    row->setProperty("#445566", "prismo_dc");
    row->setProperty({}, "prismo_key");
    EXPECT_EQ(cellOf(row)->previewColor(), color("#445566"));
}

TEST_F(ColorCellTest, NothingStoredShowsTheFallback) {
    const auto cell = cellOf(colorRow());
    EXPECT_EQ(cell->defaultColorFB(), Value("#de3027"));
    EXPECT_EQ(cell->previewColor(), color("#de3027"));
}

TEST_F(ColorCellTest, NothingStoredAndNoFallbackShowsWhite) {
    const auto cell = cellOf(colorRow("Keyboard Color", {}));
    EXPECT_EQ(cell->defaultColorFB(), Value());
    EXPECT_EQ(cell->previewColor(), UIColor::whiteColor());
}

TEST_F(ColorCellTest, InvalidStoredColorShowsTheFallback) {
    for (const auto& junk : {Value("red"), Value(5), Value(true)}) {
        store({{"keyboard_color", junk}});
        EXPECT_EQ(cellOf(colorRow())->previewColor(), color("#de3027"));
    }
}

TEST_F(ColorCellTest, StoredAlphaIsShown) {
    store({{"keyboard_color", "#102030:0.500000"}});
    EXPECT_EQ(cellOf(colorRow())->previewColor().alpha, 0.5);
}

TEST_F(ColorCellTest, UnreadableFileShowsTheFallback) {
    store({{"keyboard_color", "#102030:1.000000"}});
    device.failReads(settingsFilePath, "Permission denied");
    EXPECT_EQ(cellOf(colorRow())->previewColor(), color("#de3027"));
}

TEST_F(ColorCellTest, EveryRequestReadsTheFileAgain) {
    const auto cell = cellOf(colorRow());
    store({{"keyboard_color", "#102030:1.000000"}});
    EXPECT_EQ(cell->previewColor(), color("#102030"));
    store({{"keyboard_color", "#405060:1.000000"}});
    EXPECT_EQ(cell->previewColor(), color("#405060"));
}

TEST_F(ColorCellTest, SwatchRefreshesWhenTheSettingsChange) {
    const auto cell = cellOf(colorRow());
    store({{"keyboard_color", "#102030:1.000000"}});
    EXPECT_EQ(cell->swatch(), color("#de3027"));
    device.postFromOutside("com.corvane.prismo2.changed");
    runFor(0);
    EXPECT_EQ(cell->swatch(), color("#102030"));
}

TEST_F(ColorCellTest, PageUsesThisCellForColorRows) {
    show();
    const auto index = static_cast<std::size_t>(std::ranges::find(*page->rows(), rowNamed("Global Color")) -
                                                page->rows()->begin());
    const auto cell = page->table()->cellForRowAtIndexPath(page->indexPathForIndex(index).value());
    EXPECT_TRUE(std::dynamic_pointer_cast<PrismoColorCell>(cell));
}

} // namespace
} // namespace prismo
