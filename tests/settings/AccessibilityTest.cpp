// What a screen reader is told of every page: a line for each element, with its role, name and state.

#include "tests/settings/WindowWorld.h"

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
    /// Every element that can be used has a name, and there are some.
    void expectNamed() {
        int interactive = 0;
        for (const auto& element : elements()) {
            if (!isInteractive(element)) continue;
            ++interactive;
            EXPECT_FALSE(element.name.isEmpty()) << text(element);
        }
        EXPECT_GT(interactive, 0);
    }
    /// These lines come to be there, each once, among others.
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
            "StaticText \"The device at /the/root\" focusable"});
}

TEST_F(AccessibilityTest, RootPage) {
    openModuleByHand();
    expect({"Button \"Back\" focusable (Settings)", "Button \"Share\" focusable", "Heading \"Prismo 2\"",
            "Heading \"Scope\"", "Grouping \"Scope\" focusable (System)", "RadioButton \"System\" checked",
            "RadioButton \"Application\" unchecked", "CheckBox \"Prismo Enabled\" focusable checked",
            "Button \"Global Color\" focusable (#de3027)", "Button \"Global Enabled\" focusable (Global)",
            "Button \"Clear Icon Color Cache\" focusable",
            "CheckBox \"Album Art Color for NC|CC|HUD\" focusable unchecked"});
}

TEST_F(AccessibilityTest, ColorTypeChooser) {
    openModuleByHand();
    click("Keyboard Enabled");
    ASSERT_TRUE(waitFor([&] { return phone.pages()->depth() == 3 && isStill(); }));
    expect({"RadioButton \"Global\" focusable checked", "RadioButton \"Disabled\" focusable unchecked",
            "RadioButton \"Custom\" focusable unchecked"});
}

TEST_F(AccessibilityTest, ApplicationPicker) {
    openModuleByHand();
    table().choose(row("Scope", "segment"), 1);
    ASSERT_TRUE(waitFor([&] { return role(row("Scope", "segment"), "selected") == 1; }));
    settlePage();
    tap("No App Selected");
    ASSERT_TRUE(waitFor([&] { return phone.pages()->depth() == 3 && isStill(); }));
    expect({"Heading \"Select App\"", "Heading \"User Applications\"", "Button \"Example\" focusable"});
}

TEST_F(AccessibilityTest, ColorPicker) {
    phone.recentColors()->add("#3366ff");
    openModuleByHand();
    click("Global Color");
    ASSERT_TRUE(waitFor([&] { return phone.overlays()->depth() == 1; }));
    expect({"Slider \"Hue and Saturation\" focusable (Hue 3°, saturation 82 %)",
            "Slider \"Brightness\" focusable (87 %)", "EditableText \"Hex Color\" focusable",
            "Button \"Recent color #3366ff\" focusable", "Button \"Cancel\" focusable",
            "Button \"Choose\" focusable", "StaticText \"Before #de3027, now #de3027\" focusable"});
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
