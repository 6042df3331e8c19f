#include "tests/support/World.h"

namespace prismo {
namespace {

using Lines = std::vector<std::string>;

struct ColorGroupTest : World {
    PSSpecifierList group(const std::string& title) {
        return page->colorGroupSpecifierWithTitle(title, "#FFFFFF");
    }
    std::shared_ptr<PSSpecifier> colorRow(const std::string& title = "Keyboard") { return group(title)[1]; }
};

TEST_F(ColorGroupTest, IsAGroupAColorRowAndATypeRow) {
    store({{"keyboard_color_type", 2}});
    EXPECT_EQ(rowTexts(group("Keyboard")),
              (Lines{"group \"Keyboard\"",
                     "link \"Keyboard Color\" set=setPreferenceValue:specifier: get=readPreferenceValue:"
                     " action=chooseColor: NotificationListener=\"com.corvane.prismo2.changed\""
                     " PostNotification=\"com.corvane.prismo2.changed\" cellClass=<PrismoColorCell>"
                     " prismo_dc=\"#FFFFFF\" prismo_key=\"keyboard_color\"",
                     "linkList \"Keyboard Enabled\" set=setPreferenceValue:specifier:"
                     " get=readPreferenceValue: detail=<PrismoTypeItemsController>"
                     " titles={0 \"Global\", 1 \"Disabled\", 2 \"Custom\"}"
                     " PostNotification=\"com.corvane.prismo2.changed\" default=0"
                     " key=\"keyboard_color_type\""}));
}

TEST_F(ColorGroupTest, EveryCallMakesNewRows) {
    const auto first = group("Keyboard");
    const auto second = group("Keyboard");
    ASSERT_EQ(second.size(), 3U);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_NE(first[i], second[i]);
}

TEST_F(ColorGroupTest, CellTypesHaveThePlatformsValues) {
    const auto rows = group("Keyboard");
    EXPECT_EQ(static_cast<int>(rows[0]->cellType()), 0);
    EXPECT_EQ(static_cast<int>(rows[1]->cellType()), 1);
    EXPECT_EQ(static_cast<int>(rows[2]->cellType()), 2);
}

TEST_F(ColorGroupTest, ColorRowReadsAsNothing) {
    store({{"", false}, {"keyboard_color", "#112233:1.000000"}, {"com.example.app_", false}});
    EXPECT_EQ(colorRow()->performGetter(), Value());
    chooseApp();
    EXPECT_EQ(colorRow()->performGetter(), Value());
}

TEST_F(ColorGroupTest, GlobalColorIsNeverDisabledOrRetitled) {
    for (const auto& type : {Value(), Value(0), Value(1), Value(2)}) {
        store(type.isNothing() ? Dictionary() : Dictionary{{"global_color_type", type}});
        for (const bool appScope : {false, true}) {
            if (appScope) chooseApp();
            const auto row = colorRow("Global");
            EXPECT_EQ(row->name(), "Global Color");
            EXPECT_EQ(row->propertyForKey("enabled"), Value());
        }
    }
}

TEST_F(ColorGroupTest, GlobalGroupHasItsOwnKeys) {
    const auto rows = group("Global");
    EXPECT_EQ(rows[1]->propertyForKey("prismo_key"), Value("global_color"));
    EXPECT_EQ(rows[2]->propertyForKey("key"), Value("global_color_type"));
}

TEST_F(ColorGroupTest, KeysStartWithTheLowercaseTitle) {
    store({{"statusbar_color_type", 2}});
    const auto rows = group("StatusBar");
    EXPECT_EQ(rows[1]->name(), "StatusBar Color");
    EXPECT_EQ(rows[1]->propertyForKey("prismo_key"), Value("statusbar_color"));
    EXPECT_EQ(rows[2]->propertyForKey("key"), Value("statusbar_color_type"));
}

TEST_F(ColorGroupTest, SpacesInTheTitleBecomeUnderscoresInTheKeys) {
    store({{"volume_hud_x_color_type", 2}});
    const auto rows = group("Volume HUD X");
    EXPECT_EQ(rows[0]->name(), "Volume HUD X");
    EXPECT_EQ(rows[1]->name(), "Volume HUD X Color");
    EXPECT_EQ(rows[1]->propertyForKey("prismo_key"), Value("volume_hud_x_color"));
    EXPECT_EQ(rows[2]->name(), "Volume HUD X Enabled");
    EXPECT_EQ(rows[2]->propertyForKey("key"), Value("volume_hud_x_color_type"));
}

TEST_F(ColorGroupTest, ElementWithNothingStoredFollowsTheGlobalColor) {
    EXPECT_EQ(colorRow()->name(), "<Using Global Color>");
    EXPECT_EQ(colorRow()->propertyForKey("enabled"), Value(false));
}

TEST_F(ColorGroupTest, ApplicationWithNothingStoredFollowsTheGlobalColor) {
    chooseApp();
    EXPECT_EQ(colorRow()->name(), "<Using Global Color>");
    EXPECT_EQ(colorRow()->propertyForKey("enabled"), Value(false));
}

TEST_F(ColorGroupTest, ElementOfTypeGlobalFollowsTheGlobalColor) {
    store({{"keyboard_color_type", 0}});
    EXPECT_EQ(colorRow()->name(), "<Using Global Color>");
    EXPECT_EQ(colorRow()->propertyForKey("enabled"), Value(false));
}

TEST_F(ColorGroupTest, DisabledElementKeepsItsName) {
    store({{"keyboard_color_type", 1}});
    EXPECT_EQ(colorRow()->name(), "Keyboard Color");
    EXPECT_EQ(colorRow()->propertyForKey("enabled"), Value(false));
}

TEST_F(ColorGroupTest, EveryOtherTypeMeansACustomColor) {
    for (const Value& type : {Value(2), Value(3), Value(-1)}) {
        store({{"keyboard_color_type", type}});
        EXPECT_EQ(colorRow()->name(), "Keyboard Color");
        EXPECT_EQ(colorRow()->propertyForKey("enabled"), Value());
    }
}

TEST_F(ColorGroupTest, TypeIsComparedByValueRegardlessOfItsKind) {
    store({{"keyboard_color_type", 0.0}});
    EXPECT_EQ(colorRow()->name(), "<Using Global Color>");
    store({{"keyboard_color_type", true}});
    EXPECT_EQ(colorRow()->name(), "Keyboard Color");
    EXPECT_FALSE(colorRow()->isEnabled());
}

TEST_F(ColorGroupTest, OnlyTheColorRowIsDisabled) {
    const auto rows = group("Keyboard");
    EXPECT_EQ(rows[0]->propertyForKey("enabled"), Value());
    EXPECT_EQ(rows[2]->propertyForKey("enabled"), Value());
}

TEST_F(ColorGroupTest, AppScopePrefixesTheColorKeyAndNotTheTypeKey) {
    chooseApp();
    const auto rows = group("Keyboard");
    EXPECT_EQ(rows[1]->propertyForKey("prismo_key"), Value("com.example.app_keyboard_color"));
    EXPECT_EQ(rows[2]->propertyForKey("key"), Value("keyboard_color_type"));
}

TEST_F(ColorGroupTest, ApplicationWithoutATypeUsesTheSystemWideOne) {
    store({{"keyboard_color_type", 2}});
    chooseApp();
    EXPECT_EQ(colorRow()->name(), "Keyboard Color");
    EXPECT_TRUE(colorRow()->isEnabled());
}

TEST_F(ColorGroupTest, ApplicationTypeTakesPrecedenceOverSystemWideType) {
    store({{"keyboard_color_type", 2}, {"com.example.app_keyboard_color_type", 1}});
    chooseApp();
    EXPECT_FALSE(colorRow()->isEnabled());
}

TEST_F(ColorGroupTest, AppScopeWithoutApplicationKeepsThePlainColorKey) {
    enterAppScope();
    EXPECT_EQ(colorRow()->propertyForKey("prismo_key"), Value("keyboard_color"));
}

TEST_F(ColorGroupTest, ApplicationIsIgnoredInSystemScope) {
    page->setScopeId(exampleApp);
    EXPECT_EQ(colorRow()->propertyForKey("prismo_key"), Value("keyboard_color"));
}

TEST_F(ColorGroupTest, BuildingReadsTheFileAtMostFiveTimes) {
    group("Keyboard");
    EXPECT_LE(device.propertyListReads(settingsFilePath), 5);
}

} // namespace
} // namespace prismo
