// The window, used with the pointer and the keyboard.

#include "tests/settings/qml/WindowWorld.h"

#include <cmath>
#include <QImage>

namespace prismo::settings {
namespace {

struct WindowTest : WindowWorld {
    bool storedEnabled() {
        const auto settings = stored();
        return !settings || valueForKey(*settings, "enabled") != Value(false);
    }
    QColor pixel(const QQuickItem& item, double x, double y) {
        return window().grabWindow().pixelColor(item.mapToScene({x, y}).toPoint());
    }
    /// The height of the dark pixels in the left part of a line, where its title begins.
    int inkHeight(const QString& title) {
        const auto picture = window().grabWindow();
        const auto& item = *line(row(title));
        const auto top = item.mapToScene({0, 0}).toPoint().y();
        int first = -1;
        int last = -1;
        constexpr int margin = 4;
        for (int y = top + margin; y < top + static_cast<int>(item.height()) - margin; ++y)
            for (int x = 30; x < 150; ++x)
                if (picture.pixelColor(x, y).lightness() < 128) {
                    if (first < 0) first = y;
                    last = y;
                }
        return last - first + 1;
    }
};

TEST_F(WindowTest, ClickOpensThePageAndEscapeGoesBack) {
    openModuleByHand();
    press(Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return phone.pages()->depth() == 1 && isStill(); }));
}

TEST_F(WindowTest, MouseBackButtonGoesBack) {
    openModuleByHand();
    QTest::mouseClick(&window(), Qt::BackButton, {}, {200, 400});
    EXPECT_TRUE(waitFor([&] { return phone.pages()->depth() == 1; }));
}

TEST_F(WindowTest, SwipeFromTheEdgeGoesBack) {
    openModuleByHand();
    QTest::mousePress(&window(), Qt::LeftButton, {}, {6, 400});
    for (int x = 6; x <= 300; x += 21)
        QTest::mouseMove(&window(), {x, 400});
    QTest::mouseRelease(&window(), Qt::LeftButton, {}, {300, 400});
    EXPECT_TRUE(waitFor([&] { return phone.pages()->depth() == 1 && isStill(); }));
}

TEST_F(WindowTest, ShortSwipeKeepsThePage) {
    openModuleByHand();
    QTest::mousePress(&window(), Qt::LeftButton, {}, {6, 400});
    for (int x = 6; x <= 40; ++x)
        QTest::mouseMove(&window(), {x, 400});
    QTest::mouseRelease(&window(), Qt::LeftButton, {}, {40, 400});
    EXPECT_TRUE(waitFor([&] { return isStill(); }));
    EXPECT_EQ(phone.pages()->depth(), 2);
}

TEST_F(WindowTest, ClickTogglesASwitch) {
    openModuleByHand();
    click("Prismo Enabled");
    EXPECT_TRUE(waitFor([&] { return !storedEnabled(); }));
}

TEST_F(WindowTest, ClickOnADisabledRowDoesNothing) {
    openModuleByHand();
    click("<Using Global Color>");
    settlePage();
    EXPECT_EQ(phone.overlays()->depth(), 0);
}

TEST_F(WindowTest, KeyboardAloneWorksThePage) {
    EXPECT_TRUE(line(row("Prismo 2"))->hasActiveFocus());
    press(Qt::Key_Return);
    ASSERT_TRUE(waitFor([&] { return phone.pages()->depth() == 2 && isStill(); }));
    EXPECT_TRUE(line(row("Scope", RowKind::Segment))->hasActiveFocus());
    press(Qt::Key_Right);
    EXPECT_TRUE(waitFor([&] { return role(row("Scope", RowKind::Segment), "selected") == 1; }));
    press(Qt::Key_Left);
    EXPECT_TRUE(waitFor([&] { return role(row("Scope", RowKind::Segment), "selected") == 0; }));
    press(Qt::Key_Down);
    EXPECT_TRUE(line(row("Prismo Enabled"))->hasActiveFocus());
    press(Qt::Key_Space);
    EXPECT_TRUE(waitFor([&] { return !storedEnabled(); }));
}

TEST_F(WindowTest, TabReachesTheBarButtons) {
    openModuleByHand();
    std::vector<std::string> reached;
    for (int i = 0; i < 60; ++i) {
        press(Qt::Key_Tab);
        if (const auto* item = window().activeFocusItem(); item && !item->objectName().isEmpty())
            reached.push_back(item->objectName().toStdString());
    }
    EXPECT_TRUE(std::ranges::count(reached, "back") > 0);
    EXPECT_TRUE(std::ranges::count(reached, "rightButton") > 0);
}

TEST_F(WindowTest, FocusRingShowsWhileTheKeyboardIsUsed) {
    openModuleByHand();
    press(Qt::Key_Down);
    const auto* const focused = line(row("Prismo Enabled"));
    ASSERT_TRUE(focused->hasActiveFocus());
    const auto ring = pixel(*focused, 16, focused->height() / 2);
    QTest::mousePress(&window(), Qt::LeftButton, {}, {200, 775});
    EXPECT_NE(ring, pixel(*focused, 16, focused->height() / 2));
}

TEST_F(WindowTest, FocusRingSurroundsTheRow) {
    openModuleByHand();
    press(Qt::Key_End);
    press(Qt::Key_Up);
    const auto* const focused = window().activeFocusItem();
    ASSERT_TRUE(focused);
    const auto ring = pixel(*focused, 17, focused->height() / 2);
    EXPECT_EQ(pixel(*focused, 100, 1), ring);
    EXPECT_EQ(pixel(*focused, 100, focused->height() - 1), ring);
    EXPECT_EQ(pixel(*focused, 100, focused->height() - 2), ring);
    EXPECT_EQ(pixel(*focused, focused->width() - 18, focused->height() / 2), ring);
}

TEST_F(WindowTest, LinesAlignToWholePixels) {
    openModuleByHand();
    for (int i = 0; i < table().rowCount(); ++i) {
        EXPECT_EQ(line(i)->y(), std::round(line(i)->y())) << i;
        EXPECT_EQ(line(i)->height(), std::round(line(i)->height())) << i;
    }
}

TEST_F(WindowTest, TitleHasTheFontSizeOfItsCell) {
    openModuleByHand();
    EXPECT_LE(inkHeight("Prismo Enabled"), 15);
    auto& root = dynamic_cast<Prismo2PrefsListController&>(*top().controller());
    root.setIsInAppScope(true);
    root.reloadSpecifiers();
    settlePage();
    EXPECT_GE(inkHeight("No App Selected"), 17);
}

TEST_F(WindowTest, SwatchHasTheStoredColor) {
    store({{"global_color", "#3366ff:1.000000"}});
    openModuleByHand();
    const auto* const color = line(row("Global Color"));
    EXPECT_EQ(pixel(*color, color->width() - 46, color->height() / 2), QColor("#3366ff"));
}

TEST_F(WindowTest, ColorIsPickedByHexText) {
    openModuleByHand();
    click("Global Color");
    ASSERT_TRUE(waitFor([&] { return phone.overlays()->depth() == 1; }));
    ASSERT_TRUE(waitFor([&] {
        press(Qt::Key_Tab);
        return window().activeFocusItem()->inherits("QQuickTextInput");
    }));
    QTest::keySequence(&window(), QKeySequence("Ctrl+A"));
    for (const char letter : {'#', '1', '2', 'a', 'b', '3', '4'})
        QTest::keyClick(&window(), letter);
    EXPECT_EQ(phone.overlays()->top()->property("hexText"), "#12ab34");
    press(Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return phone.overlays()->rowCount() == 0; }));
    EXPECT_FALSE(stored());
}

TEST_F(WindowTest, ScreenHasTheSizeOfTheWindow) {
    window().resize(700, 500);
    EXPECT_TRUE(waitFor([&] { return UIScreen::mainScreen()->bounds() == CGRect{{0, 0}, {700, 500}}; }));
}

} // namespace
} // namespace prismo::settings
