#pragma once

#include "settings/model/Images.h"
#include "tests/settings/model/PhoneWorld.h"

#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

namespace prismo::settings {

/// The window itself, drawn offscreen.
struct WindowWorld : PhoneWorld {
    WindowWorld() {
        engine.addImageProvider("device", new Images);
        engine.addImportPath("qrc:/qt/qml");
        engine.setInitialProperties({{"style", "light"}, {"phone", QVariant::fromValue(&phone)}});
        engine.load(QUrl("qrc:/qt/qml/Prismo/Settings/qml/Main.qml"));
        EXPECT_FALSE(engine.rootObjects().isEmpty());
        EXPECT_TRUE(waitFor([&] { return window().isActive(); }));
    }

    QQuickWindow& window() { return dynamic_cast<QQuickWindow&>(*engine.rootObjects().first()); }
    /// Handles events on the device and in the window until the condition is true.
    bool waitFor(const std::function<bool()>& isSo) {
        return QTest::qWaitFor([&] {
            runFor(0.001);
            settle();
            return isSo();
        });
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&window(), key, modifiers);
    }
    /// Clicks the middle of the line with that title on the top page.
    void click(const QString& title, std::optional<RowKind::Kind> kind = {}) {
        auto* const item = line(row(title, kind));
        ASSERT_TRUE(item);
        QTest::mouseClick(&window(), Qt::LeftButton, {},
                          item->mapToScene({item->width() / 2, item->height() / 2}).toPoint());
    }
    /// The delegate of a line on the top page; null if it has none.
    QQuickItem* line(int row) {
        auto* const list = tableIn(*window().contentItem());
        QQuickItem* found = nullptr;
        if (list)
            QMetaObject::invokeMethod(list, "itemAtIndex", Q_RETURN_ARG(QQuickItem*, found), Q_ARG(int, row));
        return found;
    }
    /// The list of the top page.
    QQuickItem* tableIn(const QQuickItem& parent) {
        for (auto* item : parent.childItems()) {
            const bool isTable = item->objectName() == "table";
            if (isTable && item->property("model").value<QObject*>() == &table()) return item;
            if (auto* found = tableIn(*item)) return found;
        }
        return nullptr;
    }
    /// True once the top page is the only visible one.
    bool isStill() {
        const auto* const first = line(1);
        return first && visibleTables(*window().contentItem()) == 1;
    }
    static int visibleTables(const QQuickItem& parent) {
        int count = 0;
        for (const auto* item : parent.childItems())
            count += item->objectName() == "table" ? item->isVisible() : visibleTables(*item);
        return count;
    }
    void openModuleByHand() {
        click("Prismo 2");
        ASSERT_TRUE(waitFor([&] { return phone.pages()->depth() == 2 && isStill(); }));
    }

    QQmlApplicationEngine engine;
};

} // namespace prismo::settings
