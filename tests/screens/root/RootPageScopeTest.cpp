// How the chosen application and its switch change the root page.

#include "tests/support/World.h"

#include "platform/uikit/graphics/UIImage.h"

namespace prismo {
namespace {

struct RootPageScopeTest : World {
    /// The names of the enabled rows in the color groups.
    std::vector<std::string> enabledColorRows() {
        const auto rows = page->rows();
        const auto first = std::ranges::find(*rows, groupNamed("Global"));
        const auto last = std::ranges::find(*rows, groupNamed("More"));
        std::vector<std::string> names;
        for (auto row = first; row != last; ++row)
            if ((*row)->isEnabled()) names.push_back((*row)->name());
        return names;
    }
    static Dictionary allCustom() {
        return {{"keyboard_color_type", 2}, {"statusbar_color_type", 2}, {"sms_color_type", 2},
                {"nc_color_type", 2},       {"cc_color_type", 2},        {"volume_color_type", 2}};
    }
    Dictionary allCustomAnd(const std::string& key, const Value& value) {
        auto settings = allCustom();
        settings[key] = value;
        return settings;
    }
    static constexpr std::size_t allColorRows = 21;
};

TEST_F(RootPageScopeTest, SwitchingTheApplicationOffDisablesItsColorRows) {
    store(allCustomAnd("com.example.app_scope_enabled", false));
    chooseApp();
    EXPECT_EQ(enabledColorRows(), std::vector<std::string>());
}

TEST_F(RootPageScopeTest, EveryDisabledRowIsMarked) {
    store(allCustomAnd("com.example.app_scope_enabled", false));
    chooseApp();
    std::size_t marked = 0;
    for (const auto& row : *page->rows())
        marked += row->propertyForKey("enabled") == Value(false) ? 1 : 0;
    EXPECT_EQ(marked, allColorRows);
}

TEST_F(RootPageScopeTest, SwitchingTheApplicationOffKeepsSwitchesAndButtonsEnabled) {
    store({{"com.example.app_scope_enabled", false}});
    chooseApp();
    for (const auto* identifier :
         {"currentAppCell", "scope_enabled", "enabled", "splashtoner", "clearIconColorCache"})
        EXPECT_EQ(page->specifierForID(identifier)->propertyForKey("enabled"), Value()) << identifier;
    EXPECT_EQ(groupNamed("More")->propertyForKey("enabled"), Value());
    EXPECT_EQ(page->rows()->back()->propertyForKey("enabled"), Value());
}

TEST_F(RootPageScopeTest, MissingApplicationSwitchDisablesNothing) {
    store(allCustom());
    chooseApp();
    EXPECT_EQ(enabledColorRows().size(), allColorRows);
    EXPECT_EQ(rowOfKey("scope_enabled")->performGetter(), Value());
}

TEST_F(RootPageScopeTest, SwitchingTheApplicationOnDisablesNothing) {
    store(allCustomAnd("com.example.app_scope_enabled", true));
    chooseApp();
    EXPECT_EQ(enabledColorRows().size(), allColorRows);
}

TEST_F(RootPageScopeTest, PlainSwitchAppliesIfTheApplicationHasNone) {
    store(allCustomAnd("scope_enabled", false));
    chooseApp();
    EXPECT_EQ(enabledColorRows(), std::vector<std::string>());
}

TEST_F(RootPageScopeTest, ApplicationSwitchTakesPrecedenceOverThePlainOne) {
    auto settings = allCustomAnd("scope_enabled", false);
    settings["com.example.app_scope_enabled"] = true;
    store(settings);
    chooseApp();
    EXPECT_EQ(enabledColorRows().size(), allColorRows);
}

TEST_F(RootPageScopeTest, SwitchIsIgnoredInSystemScope) {
    auto settings = allCustomAnd("scope_enabled", false);
    settings["folder_color_type"] = 2;
    settings["com.example.app_scope_enabled"] = false;
    store(settings);
    EXPECT_EQ(enabledColorRows().size(), allColorRows + 3);
}

TEST_F(RootPageScopeTest, FolderAndAlbumArtAreSystemWideOnly) {
    chooseApp();
    for (const auto* name : {"Folder", "Folder Color", "Folder Enabled", "Album Art Color for NC|CC|HUD"})
        EXPECT_FALSE(hasRowNamed(name)) << name;
    EXPECT_TRUE(hasRowNamed("More"));
    EXPECT_EQ(page->rows()->back()->propertyForKey("footerAlignment"), Value("1"));
}

TEST_F(RootPageScopeTest, SwitchingToApplicationLeavesFourRows) {
    page->setSegmentPreferenceValue(true, nullptr);
    EXPECT_EQ(page->rows()->size(), 4U);
    EXPECT_EQ(page->rows()->back()->name(), "No App Selected");
    EXPECT_EQ(groupNamed("Selected App")->propertyForKey("footerText"),
              Value("Please select an app to change settings."));
    EXPECT_EQ(groupNamed("Scope")->propertyForKey("footerText"), Value(""));
}

TEST_F(RootPageScopeTest, SwitchingToSystemAndBackForgetsTheApplication) {
    chooseApp();
    page->setSegmentPreferenceValue(false, nullptr);
    EXPECT_EQ(page->rows()->size(), 33U);
    page->setSegmentPreferenceValue(true, nullptr);
    EXPECT_EQ(page->rows()->back()->name(), "No App Selected");
}

TEST_F(RootPageScopeTest, ApplicationChosenInSystemScopeShowsNoAppRows) {
    page->setScopeId(exampleApp);
    EXPECT_EQ(page->rows()->size(), 33U);
}

TEST_F(RootPageScopeTest, AppRowShowsTheApplicationsIcon) {
    chooseApp();
    const auto icon = page->specifierForID("currentAppCell")->propertyForKey("iconImage").object<UIImage>();
    ASSERT_TRUE(icon);
    EXPECT_EQ(icon->size(), (CGSize{59, 59}));
    EXPECT_EQ(icon->data(), (Data{1, 2, 3}));
}

TEST_F(RootPageScopeTest, ApplicationWithoutAnIconIsShownWithoutOne) {
    device.setApplications({userApp(exampleApp, "Example")});
    chooseApp();
    const auto row = page->specifierForID("currentAppCell");
    EXPECT_EQ(row->propertyForKey("iconImage"), Value());
    EXPECT_EQ(row->propertyForKey("height"), Value(100));
}

TEST_F(RootPageScopeTest, UninstalledApplicationIsShownWithoutAName) {
    chooseApp("com.example.gone");
    EXPECT_EQ(page->specifierForID("currentAppCell")->name(), "");
    EXPECT_EQ(groupNamed("Selected App")->propertyForKey("footerText"),
              Value("All settings below only effect the (null) app."));
    EXPECT_EQ(page->specifierForID("scope_enabled")->name(), "Custom (null) Settings Enabled");
}

TEST_F(RootPageScopeTest, NextReloadShowsTheNewApplicationsRows) {
    device.setApplications({userApp(exampleApp, "Example"), userApp("com.example.second", "Second")});
    chooseApp();
    EXPECT_TRUE(hasRowNamed("Custom Example Settings Enabled"));
    page->setScopeId("com.example.second");
    page->reloadSpecifiers();
    EXPECT_TRUE(hasRowNamed("Custom Second Settings Enabled"));
    EXPECT_EQ(colorRowOf("sms")->propertyForKey("prismo_key"), Value("com.example.second_sms_color"));
}

TEST_F(RootPageScopeTest, CurrentAppRowOpensThePicker) {
    enterAppScope();
    show();
    tap(*page, *page->specifierForID("currentAppCell"));
    const auto picker = std::dynamic_pointer_cast<PSViewController>(navigation->topViewController());
    ASSERT_TRUE(picker);
    EXPECT_EQ(picker->isa().name(), "Prismo2AppScope");
    EXPECT_EQ(picker->parentController(), page);
    releasePicker(*navigation);
}

} // namespace
} // namespace prismo
