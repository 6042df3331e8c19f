// What the lines of a page show, and what tapping them does.

#include "tests/settings/model/PhoneWorld.h"

#include <QColor>
#include <QSignalSpy>

namespace prismo::settings {
namespace {

struct RowsTest : PhoneWorld {};

TEST_F(RowsTest, FirstPageListsTheBundles) {
    EXPECT_EQ(top().property("title"), "Settings");
    EXPECT_EQ(role(row("Prismo 2"), "kind"), RowKind::Link);
    EXPECT_EQ(role(row("Prismo 2"), "opensPage"), true);
}

TEST_F(RowsTest, BundleWithoutLoadableCodeIsDisabled) {
    EXPECT_EQ(role(row("Elsewhere"), "isEnabled"), false);
    tap("Elsewhere");
    EXPECT_EQ(phone.pages()->depth(), 1);
}

TEST_F(RowsTest, TappingABundleOpensItsPrincipalPage) {
    openModule();
    EXPECT_EQ(phone.pages()->depth(), 2);
    EXPECT_EQ(top().property("title"), "Prismo 2");
}

TEST_F(RowsTest, EachRowHasItsKind) {
    openModule();
    EXPECT_EQ(role(row("Scope", RowKind::Header), "kind"), RowKind::Header);
    EXPECT_EQ(role(row("Scope", RowKind::Segment), "kind"), RowKind::Segment);
    EXPECT_EQ(role(row("Prismo Enabled"), "kind"), RowKind::Switch);
    EXPECT_EQ(role(row("Global Color"), "kind"), RowKind::Color);
    EXPECT_EQ(role(row("Global Enabled"), "kind"), RowKind::LinkList);
    EXPECT_EQ(role(row("Clear Icon Color Cache"), "kind"), RowKind::Button);
}

TEST_F(RowsTest, TappedSwitchIsStoredAndShown) {
    openModule();
    tap("Prismo Enabled");
    EXPECT_EQ(valueForKey(stored().value(), "enabled"), Value(false));
    EXPECT_EQ(role(row("Prismo Enabled"), "isChecked"), false);
}

TEST_F(RowsTest, SwitchKeepsItsValueIfTheWriteFails) {
    openModule();
    device.failWrites(settingsFilePath, "No space left on device");
    bool wasTried = false;
    device.setProblemObserver(
        [&](const Problem& problem) { wasTried |= problem.kind == Problem::Kind::unwritable; });
    tap("Prismo Enabled");
    device.setProblemObserver({});
    EXPECT_TRUE(wasTried);
    EXPECT_EQ(role(row("Prismo Enabled"), "isChecked"), true);
}

TEST_F(RowsTest, SegmentChangesTheScope) {
    openModule();
    table().choose(row("Scope", RowKind::Segment), 1);
    settlePage();
    EXPECT_EQ(role(row("Scope", RowKind::Segment), "selected"), 1);
    EXPECT_EQ(role(row("No App Selected"), "kind"), RowKind::Link);
}

TEST_F(RowsTest, ApplicationScopeKeepsTheSegmentLine) {
    openModule();
    QSignalSpy reset(&table(), &QAbstractItemModel::modelReset);
    const QPersistentModelIndex segment(table().QAbstractListModel::index(row("Scope", RowKind::Segment)));
    table().choose(segment.row(), 1);
    settlePage();
    EXPECT_TRUE(segment.isValid());
    EXPECT_EQ(reset.count(), 0);
}

TEST_F(RowsTest, LinkListShowsTheShortTitleOfItsValue) {
    store({{"keyboard_color_type", 2}});
    openModule();
    EXPECT_EQ(role(row("Keyboard Enabled"), "detail"), "Custom");
}

TEST_F(RowsTest, SelectedChoiceIsChecked) {
    openModule();
    tap("Keyboard Enabled");
    EXPECT_EQ(role(row("Global", RowKind::Choice), "isChecked"), true);
    tap("Custom");
    EXPECT_EQ(role(row("Custom", RowKind::Choice), "isChecked"), true);
    EXPECT_EQ(role(row("Global", RowKind::Choice), "isChecked"), false);
}

TEST_F(RowsTest, ColorRowShowsTheStoredColor) {
    store({{"global_color", "#3366ff:1.000000"}});
    openModule();
    EXPECT_EQ(role(row("Global Color"), "swatch").value<QColor>(), QColor("#3366ff"));
}

TEST_F(RowsTest, SwatchFollowsAChangeByAnotherProcess) {
    openModule();
    store({{"global_color", "#00ff00:1.000000"}});
    device.postFromOutside(changeNotification);
    settlePage();
    EXPECT_EQ(role(row("Global Color"), "swatch").value<QColor>(), QColor("#00ff00"));
}

TEST_F(RowsTest, SwitchFollowsAChangeByAnotherProcess) {
    openModule();
    store({{"enabled", false}});
    device.postFromOutside(changeNotification);
    settlePage();
    EXPECT_EQ(role(row("Prismo Enabled"), "isChecked"), false);
}

TEST_F(RowsTest, DisabledRowIgnoresTaps) {
    openModule();
    const int color = row("<Using Global Color>");
    EXPECT_EQ(role(color, "isEnabled"), false);
    table().tap(color);
    settlePage();
    EXPECT_EQ(phone.overlays()->depth(), 0);
}

TEST_F(RowsTest, ChosenApplicationHasATallRowWithALargeTitle) {
    auto& root = openModule();
    root.setIsInAppScope(true);
    root.setScopeId(exampleApp);
    root.reloadSpecifiers();
    settle();
    const int app = row("Example");
    EXPECT_EQ(role(app, "kind"), RowKind::Tall);
    EXPECT_EQ(role(app, "rowHeight"), 100);
    EXPECT_EQ(role(app, "fontSize"), 20);
    EXPECT_TRUE(role(app, "image").toString().startsWith("image://device/"));
}

TEST_F(RowsTest, FooterHasItsAlignment) {
    openModule();
    const int last = table().rowCount() - 1;
    EXPECT_EQ(role(last, "kind"), RowKind::Footer);
    EXPECT_EQ(role(last, "alignment"), static_cast<int>(Qt::AlignHCenter));
    EXPECT_EQ(role(row("All settings below are system-wide."), "alignment"), static_cast<int>(Qt::AlignLeft));
}

TEST_F(RowsTest, CardEndsWithTheGroup) {
    openModule();
    EXPECT_EQ(role(row("Scope", RowKind::Segment), "isFirst"), true);
    EXPECT_EQ(role(row("Scope", RowKind::Segment), "isLast"), false);
    EXPECT_EQ(role(row("Prismo Enabled"), "isLast"), true);
}

TEST_F(RowsTest, TapOnARowThatIsGoneDoesNothing) {
    auto& root = openModule();
    const int more = row("Folder Enabled");
    table().tap(more);
    root.setIsInAppScope(true); // before the queued tap runs
    root.reloadSpecifiers();
    settlePage();
    EXPECT_EQ(phone.pages()->depth(), 2);
}

struct ApplicationTableTest : PhoneWorld {
    ApplicationTableTest() {
        device.setApplications({userApp("b", "Birch"), userApp("a", "amber"), systemApp("m", "Mail"),
                                userApp("1", "1 Day"), userApp("e", "Émile")});
        auto& root = openModule();
        root.setIsInAppScope(true);
        root.reloadSpecifiers();
        settle();
        tap("No App Selected");
    }
};

TEST_F(ApplicationTableTest, HasSections) {
    EXPECT_EQ(role(0, "title"), "System Applications");
    EXPECT_EQ(role(0, "kind"), RowKind::Header);
    EXPECT_EQ(role(1, "title"), "Mail");
    EXPECT_EQ(role(1, "kind"), RowKind::Application);
    EXPECT_EQ(role(2, "title"), "User Applications");
}

TEST_F(ApplicationTableTest, IndexHasTheFirstRowOfEachLetter) {
    QStringList letters;
    for (const auto& entry : table().letters()) {
        const auto letter = entry.toMap();
        letters += letter["label"].toString() + " " + role(letter["row"].toInt(), "title").toString();
    }
    EXPECT_EQ(letters.join(", ").toStdString(), "M Mail, # 1 Day, A amber, B Birch, E Émile");
}

TEST_F(ApplicationTableTest, TapSelectsTheApplicationAndGoesBack) {
    tap("Birch");
    EXPECT_EQ(phone.pages()->depth(), 2);
    EXPECT_EQ(role(row("Birch"), "kind"), RowKind::Tall);
}

} // namespace
} // namespace prismo::settings
