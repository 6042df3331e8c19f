#include "tests/support/World.h"

namespace prismo {
namespace {

using Lines = std::vector<std::string>;

struct ScopeSegmentTest : World {
    void choose(const Value& value) { page->setSegmentPreferenceValue(value, nullptr); }
};

TEST_F(ScopeSegmentTest, ReadsTheScope) {
    EXPECT_EQ(page->readSegmentPreferenceValue(nullptr), Value(false));
    enterAppScope();
    EXPECT_EQ(page->readSegmentPreferenceValue(nullptr), Value(true));
}

TEST_F(ScopeSegmentTest, TrueEntersAppScopeAndKeepsTheChosenApplication) {
    page->setScopeId(exampleApp);
    choose(true);
    EXPECT_TRUE(page->isInAppScope());
    EXPECT_EQ(page->scopeId(), exampleApp);
}

TEST_F(ScopeSegmentTest, FalseLeavesAppScopeAndForgetsTheApplication) {
    chooseApp();
    choose(false);
    EXPECT_FALSE(page->isInAppScope());
    EXPECT_EQ(page->scopeId(), std::nullopt);
}

TEST_F(ScopeSegmentTest, SettingNothingChangesNothing) {
    chooseApp();
    choose({});
    EXPECT_TRUE(page->isInAppScope());
    EXPECT_EQ(page->scopeId(), exampleApp);
    EXPECT_TRUE(effects.empty());
    EXPECT_EQ(now().count(), 0);
}

TEST_F(ScopeSegmentTest, ValueIsReadAsABoolean) {
    choose(2);
    EXPECT_TRUE(page->isInAppScope());
    choose(0);
    EXPECT_FALSE(page->isInAppScope());
}

TEST_F(ScopeSegmentTest, PageSettlesForExactlyThirtyFiveMillisecondsAndReloads) {
    for (const bool value : {true, false}) {
        effects.clear();
        const auto start = now();
        choose(value);
        EXPECT_EQ(now() - start, std::chrono::microseconds(35000));
        EXPECT_EQ(timeline({"reload"}).size(), 1U);
    }
}

TEST_F(ScopeSegmentTest, ReloadFollowsThePause) {
    choose(true);
    EXPECT_EQ(timeline(), (Lines{"35 ms reload Prismo2PrefsListController"}));
}

TEST_F(ScopeSegmentTest, ScopeChangesBeforeThePageSettles) {
    chooseApp();
    bool systemScope = false;
    device.runLoop().schedule(Seconds(0.01),
                              [&] { systemScope = !page->isInAppScope() && !page->scopeId(); });
    choose(false);
    EXPECT_TRUE(systemScope);
}

TEST_F(ScopeSegmentTest, SwitchingWritesAndPostsNothing) {
    choose(true);
    choose(false);
    EXPECT_TRUE(timeline({"write", "post"}).empty());
    EXPECT_EQ(stored(), std::nullopt);
}

TEST_F(ScopeSegmentTest, RowSwitchesItsOwnPage) {
    rowNamed("Scope")->performSetterWithValue(true);
    EXPECT_TRUE(page->isInAppScope());
    EXPECT_TRUE(hasRowNamed("No App Selected"));
    EXPECT_EQ(rowNamed("Scope")->performGetter(), Value(true));
}

TEST_F(ScopeSegmentTest, ApplicationSettingsOutliveTheScope) {
    chooseApp();
    page->setPreferenceValue(false, switchRow(page, "enabled"));
    choose(false);
    EXPECT_EQ(stored(), (Dictionary{{"com.example.app_enabled", false}}));
}

} // namespace
} // namespace prismo
