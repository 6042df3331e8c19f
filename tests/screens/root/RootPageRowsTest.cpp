// The rows of the root page in each scope, one by one.

#include "tests/support/World.h"

namespace prismo {
namespace {

using Lines = std::vector<std::string>;

const std::string access = " set=setPreferenceValue:specifier: get=readPreferenceValue:";
const std::string posts = " PostNotification=\"com.corvane.prismo2.changed\"";
const std::string usingGlobal = "<Using Global Color>";

enum class Shown { enabled, disabled };

struct Element {
    std::string title;
    std::string colorName;
    std::string colorKey;
    std::string typeKey;
};

const std::vector<Element> systemElements{
    {"Keyboard", "Keyboard Color", "keyboard_color", "keyboard_color_type"},
    {"StatusBar", "StatusBar Color", "statusbar_color", "statusbar_color_type"},
    {"SMS", "SMS Color", "sms_color", "sms_color_type"},
    {"NC", "Notification Center Color", "nc_color", "nc_color_type"},
    {"CC", "Control Center Color", "cc_color", "cc_color_type"},
    {"Volume", "Volume HUD Color", "volume_color", "volume_color_type"},
    {"Folder", "Folder Color", "folder_color", "folder_color_type"},
};

std::string colorRowText(const std::string& name, const std::string& key, Shown shown) {
    return "link \"" + name + "\"" + access +
           " action=chooseColor: NotificationListener=\"com.corvane.prismo2.changed\"" + posts +
           " cellClass=<PrismoColorCell>" + (shown == Shown::disabled ? " enabled=false" : "") +
           " prismo_dc=\"#de3027\" prismo_key=\"" + key + "\"";
}

std::string typeRowText(const Element& element) {
    return "linkList \"" + element.title + " Enabled\"" + access +
           " detail=<PrismoTypeItemsController> titles={0 \"Global\", 1 \"Disabled\", 2 \"Custom\"}" + posts +
           " default=0 key=\"" + element.typeKey + "\"";
}

Lines globalRows(const std::string& colorKey) {
    return {"switch \"Prismo Enabled\" id=enabled" + access + posts + " default=true key=\"enabled\"",
            "group \"Global\" footerText=\"Main color that is used throughout Prismo.\"",
            colorRowText("Global Color", colorKey, Shown::enabled),
            "linkList \"Global Enabled\"" + access +
                " detail=<PrismoGlobalTypeItemsController> titles={0 \"Global\", 1 \"Icon Color\"}" + posts +
                " default=0 key=\"global_color_type\""};
}

const Lines moreRows{
    "group \"More\"",
    "button \"Change Boot Logo Color (Cydia)\" id=splashtoner action=splashtoner",
    "button \"Clear Icon Color Cache\" id=clearIconColorCache action=clearIconColorCache",
};

const Lines albumArtRows{
    "group \"\" footerText=\"Override NC, CC, and Volume HUD with the now playing artwork average color.\"",
    "switch \"Album Art Color for NC|CC|HUD\" id=use_album_art" + access + posts +
        " default=false key=\"use_album_art\"",
};

const std::string footerRow =
    "group \"\" footerAlignment=\"1\" footerText=\"© quillmoth 2016 - 2026\n Version: 2.0.1\n\"";

Lines scopeRows(const std::string& footer) {
    return {"group \"Scope\" footerText=\"" + footer + "\"",
            "segment \"Scope\" set=setSegmentPreferenceValue:specifier: get=readSegmentPreferenceValue:"
            " titles={false \"System\", true \"Application\"} values=false,true"};
}

void append(Lines& lines, const Lines& more) { lines.insert(lines.end(), more.begin(), more.end()); }

Lines systemPage(const std::function<std::string(const Element&)>& colorRow) {
    auto lines = scopeRows("All settings below are system-wide.");
    append(lines, globalRows("global_color"));
    for (const auto& element : systemElements)
        append(lines, {"group \"" + element.title + "\"", colorRow(element), typeRowText(element)});
    append(lines, moreRows);
    append(lines, albumArtRows);
    append(lines, {footerRow});
    return lines;
}

using RootPageRowsTest = World;

TEST_F(RootPageRowsTest, FreshPageShowsTheSystemWideRows) {
    const auto expected = systemPage(
        [](const Element& element) { return colorRowText(usingGlobal, element.colorKey, Shown::disabled); });
    EXPECT_EQ(expected.size(), 33U);
    EXPECT_EQ(rowTexts(*page->specifiers()), expected);
}

TEST_F(RootPageRowsTest, GlobalTypeRowOffersGlobalAndIconColorAndOpensTheirChooser) {
    const auto row = rowNamed("Global Enabled");
    const PSTitles titles{{0, "Global"}, {1, "Icon Color"}};
    EXPECT_EQ(row->titleDictionary(), titles);
    EXPECT_EQ(row->shortTitleDictionary(), titles);
    show();
    tap(*page, *row);
    EXPECT_EQ(navigation->topViewController()->isa().name(), "PrismoGlobalTypeItemsController");
}

TEST_F(RootPageRowsTest, ElementsWithCustomColorsShowTheirNames) {
    Dictionary settings;
    for (const auto& element : systemElements)
        settings[element.typeKey] = 2;
    store(settings);
    EXPECT_EQ(rowTexts(*page->specifiers()), systemPage([](const Element& element) {
                  return colorRowText(element.colorName, element.colorKey, Shown::enabled);
              }));
}

TEST_F(RootPageRowsTest, DisabledElementsKeepTheirNamesAndAreGrayedOut) {
    Dictionary settings;
    for (const auto& element : systemElements)
        settings[element.typeKey] = 1;
    store(settings);
    EXPECT_EQ(rowTexts(*page->specifiers()), systemPage([](const Element& element) {
                  return colorRowText(element.colorName, element.colorKey, Shown::disabled);
              }));
}

TEST_F(RootPageRowsTest, AppScopeWithoutApplicationShowsFourRows) {
    enterAppScope();
    auto expected = scopeRows("");
    append(expected, {"group \"Selected App\" footerText=\"Please select an app to change settings.\"",
                      "link \"No App Selected\" id=currentAppCell detail=<Prismo2AppScope>"});
    EXPECT_EQ(rowTexts(*page->specifiers()), expected);
}

TEST_F(RootPageRowsTest, AppScopeWithApplicationShowsItsRows) {
    chooseApp();
    auto expected = scopeRows("");
    append(expected, {"group \"Selected App\" footerText=\"All settings below only effect the Example app.\"",
                      "link \"Example\" id=currentAppCell detail=<Prismo2AppScope> height=100"
                      " iconImage=image 59.000000x59.000000",
                      "switch \"Custom Example Settings Enabled\" id=scope_enabled" + access + posts +
                          " default=false key=\"scope_enabled\""});
    append(expected, globalRows("com.example.app_global_color"));
    for (const auto& element : systemElements)
        if (element.title != "Folder")
            append(expected,
                   {"group \"" + element.title + "\"",
                    colorRowText(usingGlobal, "com.example.app_" + element.colorKey, Shown::disabled),
                    typeRowText(element)});
    append(expected, moreRows);
    append(expected, {footerRow});
    EXPECT_EQ(rowTexts(*page->specifiers()), expected);
}

TEST_F(RootPageRowsTest, EveryRowExceptGroupsTargetsThePage) {
    chooseApp();
    const auto app = *page->specifiers();
    page->setIsInAppScope(false);
    page->reloadSpecifiers();
    for (const auto& rows : {app, *page->specifiers()})
        for (const auto& row : rows)
            EXPECT_EQ(row->target(), row->cellType() == PSCellType::group ? nullptr : page) << rowText(*row);
}

TEST_F(RootPageRowsTest, ElementThatFollowsTheGlobalColorIsNotRetitled) {
    store({{"nc_color_type", 0}, {"cc_color_type", 0}, {"volume_color_type", 0}, {"folder_color_type", 0}});
    for (const auto* slug : {"nc", "cc", "volume", "folder"})
        EXPECT_EQ(colorRowOf(slug)->name(), "<Using Global Color>");
}

TEST_F(RootPageRowsTest, MasterSwitchIsDirectlyBelowTheScopeSegment) {
    const auto rows = page->specifiers();
    EXPECT_EQ(rows->at(1)->cellType(), PSCellType::segment);
    EXPECT_EQ(rows->at(2)->identifier(), "enabled");
}

TEST_F(RootPageRowsTest, MasterSwitchIsTheLastRowOfTheSelectedAppSection) {
    chooseApp();
    show();
    EXPECT_EQ(page->groupAtSection(1)->name(), "Selected App");
    EXPECT_EQ(page->tableViewNumberOfRowsInSection(*page->table(), 1), 3U);
    EXPECT_EQ(page->specifierAtIndexPath({1, 2})->identifier(), "enabled");
}

TEST_F(RootPageRowsTest, RowsAreCachedUntilReloaded) {
    const auto rows = page->specifiers();
    EXPECT_EQ(page->specifiers(), rows);
    page->reloadSpecifiers();
    EXPECT_NE(page->specifiers(), rows);
}

TEST_F(RootPageRowsTest, RowsWithoutApplicationAreCachedToo) {
    enterAppScope();
    const auto rows = page->specifiers();
    EXPECT_EQ(page->specifiers(), rows);
}

TEST_F(RootPageRowsTest, ReloadReadsTheStoredTypesAgain) {
    EXPECT_EQ(colorRowOf("keyboard")->name(), "<Using Global Color>");
    store({{"keyboard_color_type", 2}});
    EXPECT_EQ(colorRowOf("keyboard")->name(), "<Using Global Color>");
    page->reloadSpecifiers();
    EXPECT_EQ(colorRowOf("keyboard")->name(), "Keyboard Color");
}

TEST_F(RootPageRowsTest, BuildingReadsTheFileAtMostEightTimes) {
    for (const bool appScope : {false, true}) {
        if (appScope) chooseApp();
        const auto before = device.propertyListReads(settingsFilePath);
        page->reloadSpecifiers();
        EXPECT_LE(device.propertyListReads(settingsFilePath) - before, 8);
    }
}

TEST_F(RootPageRowsTest, BuildingQueriesTheVersionOnce) {
    for (const bool appScope : {false, true}) {
        if (appScope) chooseApp();
        effects.clear();
        page->reloadSpecifiers();
        EXPECT_EQ(effectsOfKind("task").size(), 1U);
    }
}

TEST_F(RootPageRowsTest, BuildingWithoutApplicationDoesNotQueryTheVersion) {
    enterAppScope();
    page->specifiers();
    EXPECT_TRUE(effectsOfKind("task").empty());
}

TEST_F(RootPageRowsTest, BuildingWritesAndPostsNothing) {
    chooseApp();
    page->specifiers();
    EXPECT_TRUE(timeline({"write", "post"}).empty());
}

} // namespace
} // namespace prismo
