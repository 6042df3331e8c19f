// Overlays, banners and notices, used with the pointer, the keyboard or a screen reader.

#include "settings/model/overlays/ColorPicker.h"
#include "tests/settings/qml/WindowWorld.h"

#include "platform/uikit/views/UIAlertView.h"

#include <QAccessible>
#include <set>

namespace prismo::settings {
namespace {

struct OverlayWindowTest : WindowWorld {
    OverlayWindowTest() { QAccessible::setActive(true); }

    /// The element with that name, as a screen reader finds it; null if there is none.
    QAccessibleInterface* element(const QString& name) {
        settle();
        return elementIn(*QAccessible::queryAccessibleInterface(&window()), name);
    }
    static QAccessibleInterface* elementIn(QAccessibleInterface& parent, const QString& name) {
        for (int i = 0; i < parent.childCount(); ++i) {
            auto* const child = parent.child(i);
            if (!child || child->state().invisible) continue;
            if (child->text(QAccessible::Name) == name) return child;
            if (auto* const found = elementIn(*child, name)) return found;
        }
        return nullptr;
    }
    bool focuses(const QString& name) {
        const auto* const found = element(name);
        return found && found->object() == window().activeFocusItem();
    }
    /// True if the focus is on the page.
    bool isInTable() {
        for (const auto* item = window().activeFocusItem(); item; item = item->parentItem())
            if (item->objectName() == "table") return true;
        return false;
    }
    /// Presses an element as a screen reader does.
    void pressElement(const QString& name) {
        auto* const found = element(name);
        ASSERT_TRUE(found) << name.toStdString();
        found->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        settlePage();
    }
    QRect place(const QString& name) {
        const auto* const found = element(name);
        return found ? QRect(window().mapFromGlobal(found->rect().topLeft()), found->rect().size()) : QRect();
    }
    /// The accessible names of all items that Tab reaches.
    std::set<QString> reachedByTab() {
        std::set<QString> names;
        constexpr int enough = 80;
        for (int i = 0; i < enough; ++i) {
            press(Qt::Key_Tab);
            if (auto* const item = window().activeFocusItem())
                if (const auto* const found = QAccessible::queryAccessibleInterface(item))
                    names.insert(found->text(QAccessible::Name));
        }
        return names;
    }
    void type(const char* text) {
        for (; *text; ++text)
            QTest::keyClick(&window(), *text);
    }
    void resize(int width, int height) {
        window().resize(width, height);
        ASSERT_TRUE(waitFor([&] {
            return UIScreen::mainScreen()->bounds() == CGRect{{0, 0}, {double(width), double(height)}};
        }));
    }

    void showBanner() {
        device.postFromOutside(changeNotification);
        ASSERT_TRUE(waitFor([&] { return element(bannerTitle) != nullptr; }));
    }
    ColorPicker& openPicker() {
        click("Global Color");
        EXPECT_TRUE(waitFor([&] { return phone.overlays()->depth() == 1; }));
        // Until its entry animation has ended.
        QTest::qWait(400);
        return dynamic_cast<ColorPicker&>(*phone.overlays()->top());
    }
    bool isAlone() { return phone.overlays()->rowCount() == 0; }
    static QQuickItem* itemWithText(const QQuickItem& parent, const QString& text) {
        for (auto* item : parent.childItems()) {
            if (item->property("text") == text) return item;
            if (auto* const found = itemWithText(*item, text)) return found;
        }
        return nullptr;
    }

    const QString bannerTitle = "Prismo 2 – Tap to Respring?";
};

TEST_F(OverlayWindowTest, TabStaysInTheSheet) {
    openModuleByHand();
    showBanner();
    phone.notices()->add("Headline", "Reason");
    openPicker();
    const auto reached = reachedByTab();
    EXPECT_TRUE(reached.contains("Choose"));
    for (const auto& below : {bannerTitle, QString("Dismiss"), QString("Back")})
        EXPECT_FALSE(reached.contains(below)) << below.toStdString();
}

TEST_F(OverlayWindowTest, BannerBelowTheSheetCannotBePressed) {
    openModuleByHand();
    showBanner();
    openPicker();
    pressElement(bannerTitle);
    EXPECT_TRUE(effectsOfKind("spawn").empty());
    press(Qt::Key_Escape);
    ASSERT_TRUE(waitFor([&] { return isAlone(); }));
    pressElement(bannerTitle);
    EXPECT_EQ(effectsOfKind("spawn").size(), 1U);
}

TEST_F(OverlayWindowTest, OnlyTheTopmostCanBeUsed) {
    openModuleByHand();
    openPicker();
    std::make_shared<UIAlertView>("Title", "Message", nullptr, "Cancel it")->show();
    ASSERT_TRUE(waitFor([&] { return focuses("Cancel it"); }));
    EXPECT_EQ(reachedByTab(), std::set<QString>{"Cancel it"});
    press(Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return focuses("Hue and Saturation"); }));
}

TEST_F(OverlayWindowTest, PageOpeningBelowAnAlertDoesNotTakeTheFocus) {
    std::make_shared<UIAlertView>("Title", "Message", nullptr, "Cancel it")->show();
    ASSERT_TRUE(waitFor([&] { return focuses("Cancel it"); }));
    table().tap(row("Prismo 2"));
    ASSERT_TRUE(waitFor([&] { return phone.pages()->depth() == 2 && isStill(); }));
    EXPECT_TRUE(focuses("Cancel it"));
    press(Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return isAlone() && line(row("Scope", RowKind::Segment))->hasActiveFocus(); }));
}

TEST_F(OverlayWindowTest, ExtraClicksOnPostOpenTheLinkOnceAndNothingBelow) {
    device.setLinkSchemes({"https"});
    openModuleByHand();
    top().tapRightButton();
    ASSERT_TRUE(waitFor([&] { return element("Cancel") != nullptr; }));
    QTest::qWait(400);
    const auto post = itemWithText(*window().contentItem(), "Post");
    ASSERT_TRUE(post);
    const auto at = post->mapToScene({post->width() / 2, post->height() / 2}).toPoint();
    const auto before = device.propertyListReads(settingsFilePath);
    QTest::mouseClick(&window(), Qt::LeftButton, {}, at);
    settle();
    for (int i = 0; i < 3; ++i)
        QTest::mouseClick(&window(), Qt::LeftButton, {}, at);
    settlePage();
    EXPECT_FALSE(isAlone());
    EXPECT_EQ(links().size(), 1U);
    EXPECT_EQ(device.propertyListReads(settingsFilePath), before);
    EXPECT_EQ(phone.pages()->depth(), 2);
    EXPECT_TRUE(waitFor([&] { return isAlone(); }));
}

TEST_F(OverlayWindowTest, FocusMovesToThePickerAndBackToThePage) {
    openModuleByHand();
    openPicker();
    EXPECT_TRUE(focuses("Hue and Saturation"));
    press(Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return isAlone() && isInTable(); }));
}

TEST_F(OverlayWindowTest, ReturnInTheHexFieldAcceptsOnlyAValidColor) {
    openModuleByHand();
    openPicker();
    ASSERT_TRUE(waitFor([&] {
        press(Qt::Key_Tab);
        return focuses("Hex Color");
    }));
    QTest::keySequence(&window(), QKeySequence("Ctrl+A"));
    type("#12");
    press(Qt::Key_Return);
    settlePage();
    EXPECT_EQ(phone.overlays()->depth(), 1);
    type("ab34");
    press(Qt::Key_Return);
    EXPECT_TRUE(waitFor([&] { return isAlone(); }));
    EXPECT_EQ(valueForKey(stored().value(), "global_color").text(), "#12ab34:1.000000");
}

TEST_F(OverlayWindowTest, ScreenReaderCanSetTheSliderValues) {
    openModuleByHand();
    auto& picker = openPicker();
    auto* brightness = element("Brightness")->valueInterface();
    ASSERT_TRUE(brightness);
    EXPECT_EQ(brightness->minimumValue(), 0);
    EXPECT_EQ(brightness->maximumValue(), 1);
    EXPECT_GT(brightness->minimumStepSize().toDouble(), 0);
    brightness->setCurrentValue(0.25);
    EXPECT_EQ(picker.brightness(), 0.25);
    EXPECT_EQ(element("Brightness")->text(QAccessible::Description), "25%");
    brightness->setCurrentValue(7);
    EXPECT_EQ(picker.brightness(), 1);
    EXPECT_EQ(brightness->currentValue(), 1);
    picker.setHSB(0.5, 1, 0.5);
    EXPECT_EQ(brightness->currentValue(), 0.5);
    element("Hue and Saturation")->valueInterface()->setCurrentValue(0.75);
    EXPECT_EQ(picker.hue(), 0.75);
}

TEST_F(OverlayWindowTest, PickerDescribesItsColorsAsStored) {
    store({{"global_color", "#808080:1.000000"}});
    openModuleByHand();
    openPicker().setHSB(0, 0, 0.5470588);
    EXPECT_TRUE(element("Was #808080, now #8b8b8b"));
}

struct SmallWindowTest : OverlayWindowTest, testing::WithParamInterface<QSize> {};

TEST_P(SmallWindowTest, PickerFits) {
    for (const auto* color :
         {"#111111", "#222222", "#333333", "#444444", "#555555", "#666666", "#777777", "#888888"})
        phone.recentColors()->add(color);
    openModuleByHand();
    resize(GetParam().width(), GetParam().height());
    ASSERT_TRUE(waitFor([&] { return line(row("Global Color")) != nullptr; }));
    table().tap(row("Global Color"));
    ASSERT_TRUE(waitFor([&] { return phone.overlays()->depth() == 1; }));
    QTest::qWait(400);
    const auto card = place("Color");
    for (const auto* name : {"Hue and Saturation", "Brightness", "Hex Color", "Recent color #111111",
                             "Recent color #888888", "Was #de3027, now #de3027"})
        EXPECT_TRUE(card.contains(place(name))) << name;
    EXPECT_GT(place("Hue and Saturation").height(), 60);
    const auto* const caption = itemWithText(*window().contentItem(), "Hex");
    EXPECT_LT(place("Was #de3027, now #de3027").right(), caption->mapToScene({}).x());
}

INSTANTIATE_TEST_SUITE_P(Sizes, SmallWindowTest, testing::Values(QSize(780, 420), QSize(320, 420)),
                         [](const auto& tested) { return "Width" + std::to_string(tested.param.width()); });

TEST_F(OverlayWindowTest, ButtonsOfALongAlertFollowTheFocus) {
    resize(320, 420);
    const auto alert = std::make_shared<UIAlertView>("Title", "Message", nullptr, "Cancel it");
    for (int i = 0; i < 12; ++i)
        alert->addButtonWithTitle("Choice " + std::to_string(i));
    alert->show();
    ASSERT_TRUE(waitFor([&] { return focuses("Cancel it"); }));
    QTest::qWait(300);
    const QRect all({}, window().size());
    EXPECT_TRUE(all.contains(place("Cancel it")));
    ASSERT_TRUE(waitFor([&] {
        press(Qt::Key_Tab);
        return focuses("Choice 0");
    }));
    EXPECT_TRUE(all.contains(place("Choice 0")));
    EXPECT_FALSE(all.contains(place("Cancel it")));
}

TEST_F(OverlayWindowTest, DismissingANoticeReturnsTheFocusToThePage) {
    openModuleByHand();
    phone.notices()->add("Headline", "Reason");
    auto* const dismiss = qobject_cast<QQuickItem*>(element("Dismiss")->object());
    dismiss->forceActiveFocus(Qt::TabFocusReason);
    ASSERT_TRUE(focuses("Dismiss"));
    press(Qt::Key_Space);
    EXPECT_TRUE(waitFor([&] { return phone.notices()->rowCount() == 0 && isInTable(); }));
}

TEST_F(OverlayWindowTest, DisappearingBannerReturnsTheFocusToThePage) {
    openModuleByHand();
    showBanner();
    qobject_cast<QQuickItem*>(element(bannerTitle)->object())->forceActiveFocus(Qt::TabFocusReason);
    ASSERT_TRUE(focuses(bannerTitle));
    runFor(7);
    EXPECT_TRUE(waitFor([&] { return phone.banners().isEmpty() && isInTable(); }));
}

TEST_F(OverlayWindowTest, ManyNoticesTakeHalfThePageAtMostAndShowTheNewest) {
    constexpr int count = 20;
    for (int i = 0; i < count; ++i)
        phone.notices()->add(QString("Headline %1").arg(i), "Reason");
    const QRect lowerHalf(0, window().height() / 2 - 20, window().width(), window().height() / 2 + 20);
    EXPECT_TRUE(waitFor([&] { return lowerHalf.contains(place("Headline 19")); }));
    auto* list = itemWithText(*window().contentItem(), "Headline 0");
    while (!list->inherits("QQuickFlickable"))
        list = list->parentItem();
    EXPECT_LE(list->height(), window().height() / 2);
    const auto focusIn = [&](const QString& headline) {
        const auto* const focused = window().activeFocusItem();
        const auto* const card = qobject_cast<QQuickItem*>(element(headline)->object());
        return focused && card->isAncestorOf(focused);
    };
    list->setProperty("contentY", 0);
    ASSERT_TRUE(waitFor([&] {
        press(Qt::Key_Tab);
        return element("Headline 7") && focusIn("Headline 7");
    }));
    EXPECT_TRUE(lowerHalf.contains(place("Headline 7")));
}

} // namespace
} // namespace prismo::settings
