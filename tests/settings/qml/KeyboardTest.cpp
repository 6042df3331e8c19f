// Keyboard use: moving within a table, and from one control to the next.

#include "tests/settings/qml/WindowWorld.h"

namespace prismo::settings {
namespace {

struct KeyboardTest : WindowWorld {
    QQuickItem& list() { return *tableIn(*window().contentItem()); }
    int current() { return list().property("currentIndex").toInt(); }
    bool isCurrent(const QString& title, std::optional<RowKind::Kind> kind = {}) {
        auto* const item = line(row(title, kind));
        return item && item->hasActiveFocus();
    }
    /// True if the whole line is in view.
    bool isInView(int row) {
        auto* const item = line(row);
        if (!item) return false;
        const auto top = item->mapToItem(&list(), {0, 0}).y();
        return top >= 0 && top + item->height() <= list().height();
    }
    QString focused() {
        const auto* const item = window().activeFocusItem();
        return item ? item->objectName() : QString();
    }
};

TEST_F(KeyboardTest, PageUpUndoesPageDown) {
    openModuleByHand();
    press(Qt::Key_Home);
    const int first = current();
    press(Qt::Key_PageDown);
    EXPECT_GT(current(), first + 5);
    EXPECT_TRUE(isInView(current()));
    press(Qt::Key_PageUp);
    EXPECT_EQ(current(), first);
}

TEST_F(KeyboardTest, EndShowsTheFooterBelowTheLastRow) {
    openModuleByHand();
    const int last = table().rowCount() - 1;
    ASSERT_EQ(role(last, "kind"), RowKind::Footer);
    press(Qt::Key_End);
    EXPECT_TRUE(isInView(last));
    press(Qt::Key_Home);
    EXPECT_TRUE(isInView(0));
    for (int i = 0; i < 5; ++i)
        press(Qt::Key_PageDown);
    EXPECT_TRUE(isInView(last));
}

TEST_F(KeyboardTest, ClickedRowHasTheFocusAfterGoingBack) {
    openModuleByHand();
    press(Qt::Key_End);
    const int clicked = row("Folder Enabled");
    ASSERT_TRUE(isInView(clicked));
    click("Folder Enabled");
    ASSERT_TRUE(waitFor([&] { return phone.pages()->depth() == 3 && isStill(); }));
    press(Qt::Key_Escape);
    ASSERT_TRUE(waitFor([&] { return phone.pages()->depth() == 2 && isStill(); }));
    EXPECT_TRUE(isCurrent("Folder Enabled"));
}

TEST_F(KeyboardTest, ChooserFocusesTheSelectedChoice) {
    store({{"keyboard_color_type", 2}});
    openModuleByHand();
    click("Keyboard Enabled");
    ASSERT_TRUE(waitFor([&] { return phone.pages()->depth() == 3 && isStill(); }));
    EXPECT_TRUE(isCurrent("Custom", RowKind::Choice));
}

TEST_F(KeyboardTest, TabGoesFromTheLastRowThroughTheBarToTheFirst) {
    openModuleByHand();
    press(Qt::Key_Home);
    const int first = current();
    press(Qt::Key_End);
    const int last = current();
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), "back");
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), "rightButton");
    press(Qt::Key_Tab);
    EXPECT_TRUE(list().hasActiveFocus());
    EXPECT_EQ(current(), first);
    EXPECT_TRUE(isInView(first));

    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focused(), "rightButton");
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focused(), "back");
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(list().hasActiveFocus());
    EXPECT_EQ(current(), last);
}

/// A list of many applications.
struct LongTableTest : KeyboardTest {
    static constexpr int count = 2000;

    LongTableTest() {
        std::vector<InstalledApplication> applications;
        for (int i = 0; i < count; ++i)
            applications.push_back(userApp("com.example." + std::to_string(i),
                                           static_cast<char>('A' + i * 26 / count) + std::to_string(i)));
        device.setApplications(applications);
        openModuleByHand();
        table().choose(row("Scope", RowKind::Segment), 1);
        settlePage();
        tap("No App Selected");
        EXPECT_TRUE(waitFor([&] { return phone.pages()->depth() == 3 && isStill(); }));
    }
    static QQuickItem* named(const QQuickItem& parent, const QString& name) {
        for (auto* item : parent.childItems()) {
            if (item->objectName() == name && item->isVisible()) return item;
            if (auto* found = named(*item, name)) return found;
        }
        return nullptr;
    }
    QQuickItem& strip() { return *named(*window().contentItem(), "index"); }
    QString letter() { return strip().property("letter").toString(); }
    QString title(int line) { return role(line, "title").toString(); }
    double top() { return list().property("contentY").toDouble(); }
    bool isFocusedStrip() { return window().activeFocusItem() == &strip(); }
};

TEST_F(LongTableTest, PageDownMovesByOnePage) {
    const int first = current();
    press(Qt::Key_PageDown);
    EXPECT_GT(current(), first + 5);
    EXPECT_LT(current(), first + 25);
    EXPECT_TRUE(isInView(current()));
    const int second = current();
    press(Qt::Key_PageDown);
    EXPECT_GT(current(), second + 5);
    EXPECT_LT(current(), second + 25);
    press(Qt::Key_PageUp);
    press(Qt::Key_PageUp);
    EXPECT_EQ(current(), first);
}

TEST_F(LongTableTest, PageDownReachesTheEnd) {
    press(Qt::Key_End);
    const int last = current();
    EXPECT_EQ(last, table().rowCount() - 1);
    press(Qt::Key_PageUp);
    EXPECT_LT(current(), last - 5);
    press(Qt::Key_PageDown);
    press(Qt::Key_PageDown);
    EXPECT_EQ(current(), last);
    EXPECT_TRUE(isInView(last));
}

TEST_F(LongTableTest, TabLeavesTheListForItsIndex) {
    press(Qt::Key_Down);
    const int left = current();
    press(Qt::Key_Tab);
    ASSERT_TRUE(isFocusedStrip());
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), "back");
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(isFocusedStrip());
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(list().hasActiveFocus());
    EXPECT_EQ(current(), left);
}

TEST_F(LongTableTest, IndexStartsFromTheLetterInView) {
    press(Qt::Key_End);
    press(Qt::Key_Tab);
    ASSERT_TRUE(isFocusedStrip());
    EXPECT_EQ(letter(), "Z");
    press(Qt::Key_Up);
    EXPECT_EQ(letter(), "Y");
    EXPECT_EQ(title(current()).left(1), "Y");
    EXPECT_TRUE(isInView(current()));
    press(Qt::Key_Down);
    EXPECT_EQ(letter(), "Z");

    list().setProperty("contentY", 0);
    EXPECT_EQ(letter(), "A");
    press(Qt::Key_Down);
    EXPECT_EQ(letter(), "B");
}

} // namespace
} // namespace prismo::settings
