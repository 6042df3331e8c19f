// What a screen reader gets from every page: for each element its role, name and state.

#include "tests/settings/qml/WindowWorld.h"

#include "kit/FBWelcomeTwitterHandler.h"

#include <QAccessible>
#include <sstream>

namespace prismo::settings {
namespace {

struct Element {
    QAccessible::Role role;
    QString name;
    QString description;
    QAccessible::State state;
};

struct AccessibilityTest : WindowWorld {
    AccessibilityTest() { QAccessible::setActive(true); }

    std::vector<Element> elements() {
        settle();
        std::vector<Element> found;
        collect(*QAccessible::queryAccessibleInterface(&window()), found);
        return found;
    }
    static void collect(QAccessibleInterface& parent, std::vector<Element>& found) {
        for (int i = 0; i < parent.childCount(); ++i) {
            auto* const child = parent.child(i);
            if (!child || child->state().invisible) continue;
            found.push_back({child->role(), child->text(QAccessible::Name),
                             child->text(QAccessible::Description), child->state()});
            collect(*child, found);
        }
    }

    static bool isInteractive(const Element& element) {
        switch (element.role) {
        case QAccessible::Button:
        case QAccessible::CheckBox:
        case QAccessible::RadioButton:
        case QAccessible::Slider:
        case QAccessible::EditableText:
            return true;
        default:
            return false;
        }
    }
    static std::string text(const Element& element) {
        std::ostringstream line;
        line << qPrintable(QVariant::fromValue(element.role).toString()) << " \""
             << element.name.toStdString() << '"';
        if (element.state.focusable) line << " focusable";
        if (element.state.selected) line << " selected";
        if (element.state.checkable) line << (element.state.checked ? " checked" : " unchecked");
        if (!element.description.isEmpty()) line << " (" << element.description.toStdString() << ')';
        return line.str();
    }
    std::vector<std::string> dump() {
        std::vector<std::string> lines;
        for (const auto& element : elements())
            lines.push_back(text(element));
        return lines;
    }
    /// Presses an item as assistive technology does.
    static void pressAction(QQuickItem& item) {
        auto* const element = QAccessible::queryAccessibleInterface(&item);
        ASSERT_TRUE(element && element->actionInterface());
        element->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    }
    /// The first visible element with that name inside an item.
    static QQuickItem* element(const QQuickItem& parent, const QString& name) {
        for (auto* child : parent.childItems()) {
            auto* const accessible = QAccessible::queryAccessibleInterface(child);
            if (child->isVisible() && accessible && accessible->text(QAccessible::Name) == name) return child;
            if (auto* found = element(*child, name)) return found;
        }
        return nullptr;
    }
    /// The titles of the page's lines, in accessibility order.
    QStringList toldTitles() {
        QStringList titles;
        auto* const list = QAccessible::queryAccessibleInterface(tableIn(*window().contentItem()));
        for (int i = 0; i < list->childCount(); ++i)
            if (const auto* child = list->child(i); child && !child->text(QAccessible::Name).isEmpty())
                titles += child->text(QAccessible::Name);
        return titles;
    }
    QStringList titles() {
        QStringList titles;
        for (int i = 0; i < table().rowCount(); ++i)
            if (const auto title = role(i, "title").toString(); !title.isEmpty()) titles += title;
        return titles;
    }
    /// Waits until the accessibility order is the line order.
    void expectTitlesInOrder() {
        EXPECT_TRUE(waitFor([&] { return toldTitles() == titles(); }))
            << toldTitles().join(" | ").toStdString() << "\ninstead of\n"
            << titles().join(" | ").toStdString();
    }
    void chooseScope(int scope) {
        table().choose(row("Scope", RowKind::Segment), scope);
        ASSERT_TRUE(waitFor([&] { return role(row("Scope", RowKind::Segment), "selected") == scope; }));
        settlePage();
    }
    void openApplicationPicker() {
        openModuleByHand();
        chooseScope(1);
        tap("No App Selected");
        ASSERT_TRUE(waitFor([&] { return phone.pages()->depth() == 3 && isStill(); }));
    }
    /// Expects interactive elements, all with a name.
    void expectNamed() {
        int interactive = 0;
        for (const auto& element : elements()) {
            if (!isInteractive(element)) continue;
            ++interactive;
            EXPECT_FALSE(element.name.isEmpty()) << text(element);
        }
        EXPECT_GT(interactive, 0);
    }
    /// Waits until each of these lines is there exactly once.
    void expect(const std::vector<std::string>& wanted) {
        std::vector<std::string> lines;
        const auto isOnce = [&](const std::string& line) { return std::ranges::count(lines, line) == 1; };
        waitFor([&] {
            lines = dump();
            return std::ranges::all_of(wanted, isOnce);
        });
        std::string all;
        for (const auto& line : lines)
            all += line + '\n';
        for (const auto& line : wanted)
            EXPECT_TRUE(isOnce(line)) << line << " in\n" << all;
        expectNamed();
    }
};

TEST_F(AccessibilityTest, FirstPage) {
    expect({"Button \"Prismo 2\" focusable", "Button \"Elsewhere\" (Dimmed)", "Heading \"Settings\"",
            "Paragraph \"The device at /the/root\""});
}

TEST_F(AccessibilityTest, RootPage) {
    openModuleByHand();
    expect({"Button \"Back\" focusable (Settings)", "Button \"Share\" focusable", "Heading \"Prismo 2\"",
            "Heading \"Scope\"", "Grouping \"Scope\" focusable (System)", "RadioButton \"System\" checked",
            "RadioButton \"Application\" unchecked", "CheckBox \"Prismo Enabled\" focusable checked",
            "Button \"Global Color\" focusable (#de3027)", "Button \"Global Enabled\" focusable (Global)",
            "Button \"Clear Icon Color Cache\" focusable",
            "Paragraph \"All settings below are system-wide.\"",
            "CheckBox \"Album Art Color for NC|CC|HUD\" focusable unchecked"});
    // A disabled row still describes its color.
    EXPECT_GT(std::ranges::count(dump(), "Button \"<Using Global Color>\" (#de3027, dimmed)"), 0);
}

TEST_F(AccessibilityTest, ColorTypeChooser) {
    openModuleByHand();
    click("Keyboard Enabled");
    ASSERT_TRUE(waitFor([&] { return phone.pages()->depth() == 3 && isStill(); }));
    expect({"RadioButton \"Global\" focusable checked", "RadioButton \"Disabled\" focusable unchecked",
            "RadioButton \"Custom\" focusable unchecked"});
}

TEST_F(AccessibilityTest, ScopeOfAnApplication) {
    openModuleByHand();
    auto& root = dynamic_cast<Prismo2PrefsListController&>(*top().controller());
    root.setIsInAppScope(true);
    root.setScopeId(exampleApp);
    root.reloadSpecifiers();
    settlePage();
    expect({"RadioButton \"System\" unchecked", "RadioButton \"Application\" checked",
            "Button \"Example\" focusable"});
}

TEST_F(AccessibilityTest, GlobalTypeChooser) {
    openModuleByHand();
    click("Global Enabled");
    ASSERT_TRUE(waitFor([&] { return phone.pages()->depth() == 3 && isStill(); }));
    expect({"Heading \"Global Enabled\"", "RadioButton \"Global\" focusable checked",
            "RadioButton \"Icon Color\" focusable unchecked"});
}

TEST_F(AccessibilityTest, LinesStayInOrderAfterAChange) {
    openModuleByHand();
    expectTitlesInOrder();
    chooseScope(1);
    expectTitlesInOrder();
    chooseScope(0);
    expectTitlesInOrder();
}

TEST_F(AccessibilityTest, LinesOutOfViewAreIncludedAtAnyWindowSize) {
    openModuleByHand();
    expectTitlesInOrder();
    window().resize(390, 500);
    expectTitlesInOrder();
}

TEST_F(AccessibilityTest, ApplicationPicker) {
    openApplicationPicker();
    expect({"Heading \"Select App\"", "Heading \"User Applications\"", "Button \"Example\" focusable"});
}

TEST_F(AccessibilityTest, IndexOfALongTable) {
    std::vector<InstalledApplication> applications;
    for (char initial = 'A'; initial <= 'Z'; ++initial)
        for (const char* name : {"lpha", "eta"})
            applications.push_back(userApp(name + std::string(1, initial), initial + std::string(name)));
    device.setApplications(applications);
    openApplicationPicker();
    expect({"List \"Index\" focusable (A)", "Button \"A\" selected", "Button \"B\"", "Button \"Z\"",
            "Button \"Alpha\" focusable", "Button \"Beta\" focusable"});
    EXPECT_EQ(toldTitles().mid(0, 5), titles().mid(0, 5));
    pressAction(*element(*window().contentItem(), "M"));
    expect({"List \"Index\" focusable (M)", "Button \"A\"", "Button \"M\" selected"});
    pressAction(*element(*window().contentItem(), "B"));
    EXPECT_TRUE(waitFor([&] {
        const auto told = toldTitles();
        return std::ranges::is_sorted(told, {},
                                      [all = titles()](const QString& title) { return all.indexOf(title); });
    })) << toldTitles().join(" | ").toStdString();
    pressAction(*element(*window().contentItem(), "M"));

    FBShowTwitterFollowAlert("Title", "Message", "somebody");
    ASSERT_TRUE(waitFor([&] { return phone.overlays()->depth() == 1; }));
    pressAction(*element(*window().contentItem(), "Z"));
    EXPECT_EQ(element(*window().contentItem(), "Index")->property("letter").toString(), "M");
}

TEST_F(AccessibilityTest, PressedRowHasTheFocusAfterGoingBack) {
    openModuleByHand();
    pressAction(*line(row("Folder Enabled")));
    ASSERT_TRUE(waitFor([&] { return phone.pages()->depth() == 3 && isStill(); }));
    press(Qt::Key_Escape);
    ASSERT_TRUE(waitFor([&] { return phone.pages()->depth() == 2 && isStill(); }));
    EXPECT_TRUE(line(row("Folder Enabled"))->hasActiveFocus());
}

TEST_F(AccessibilityTest, NothingBelowAnAlertCanBePressed) {
    openModuleByHand();
    FBShowTwitterFollowAlert("Title", "Message", "somebody");
    ASSERT_TRUE(waitFor([&] { return phone.overlays()->depth() == 1; }));
    pressAction(*line(row("Prismo Enabled")));
    pressAction(*element(*line(row("Scope", RowKind::Segment)), "Application"));
    pressAction(*element(*window().contentItem(), "Back"));
    settlePage();
    EXPECT_FALSE(stored());
    EXPECT_EQ(phone.pages()->depth(), 2);
}

TEST_F(AccessibilityTest, ColorPicker) {
    phone.recentColors()->add("#3366ff");
    openModuleByHand();
    click("Global Color");
    ASSERT_TRUE(waitFor([&] { return phone.overlays()->depth() == 1; }));
    expect({"Slider \"Hue and Saturation\" focusable (Hue 3°, saturation 82%)",
            "Slider \"Brightness\" focusable (87%)", "EditableText \"Hex Color\" focusable",
            "Button \"Recent color #3366ff\" focusable", "Button \"Cancel\" focusable",
            "Button \"Choose\" focusable", "StaticText \"Was #de3027, now #de3027\" focusable"});
}

TEST_F(AccessibilityTest, ComposeSheet) {
    openModuleByHand();
    top().tapRightButton();
    ASSERT_TRUE(waitFor([&] { return phone.overlays()->depth() == 1; }));
    expect({"Dialog \"Twitter\"", "EditableText \"Post\" focusable", "Button \"Post\" focusable",
            "Button \"Cancel\" focusable"});
}

TEST_F(AccessibilityTest, Alert) {
    FBShowTwitterFollowAlert("Title", "Message", "somebody");
    ASSERT_TRUE(waitFor([&] { return phone.overlays()->depth() == 1; }));
    expect({"Dialog \"Title\" (Message)", "StaticText \"Message\" focusable",
            "Button \"No thanks!\" focusable", "Button \"I'd love to!\" focusable"});
}

TEST_F(AccessibilityTest, BannerAndNotice) {
    openModuleByHand();
    device.postFromOutside(changeNotification);
    ASSERT_TRUE(waitFor([&] { return !phone.banners().isEmpty(); }));
    runFor(0.5);
    phone.notices()->add("Headline", "Reason");
    expect({"Button \"Prismo 2 – Tap to Respring?\" focusable", "AlertMessage \"Headline\" (Reason)",
            "Button \"Dismiss\" focusable"});
}

} // namespace
} // namespace prismo::settings
