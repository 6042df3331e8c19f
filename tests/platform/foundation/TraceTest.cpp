#include "platform/foundation/Trace.h"

#include "platform/foundation/CFNotificationCenter.h"
#include "platform/foundation/NSTimer.h"
#include "platform/preferences/PSListController.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/views/UIControl.h"
#include "tests/support/MemoryWorld.h"

#include <stdexcept>

namespace prismo {
namespace {

constexpr const char* file = "/User/page.plist";
constexpr const char* changeName = "com.example.changed";

/// A page with one switch, which is kept in a file.
class SwitchPage : public PSListController {
  public:
    static const Class& classObject() {
        static const Class objectClass(
            "SwitchPage", &PSListController::classObject(), [] { return std::make_shared<SwitchPage>(); },
            {method<&SwitchPage::fail>("fail"), method<&SwitchPage::post>("post")});
        return objectClass;
    }
    const Class& isa() const override { return classObject(); }

    std::shared_ptr<PSSpecifierList> specifiers() override {
        specifiers_ = std::make_shared<PSSpecifierList>(PSSpecifierList{PSSpecifier::preferenceSpecifierNamed(
            rowName, sharedSelf<SwitchPage>(), "setPreferenceValue:specifier:", "readPreferenceValue:",
            nullptr, PSCellType::switchCell, nullptr)});
        return specifiers_;
    }
    void setPreferenceValue(const Value& value, const std::shared_ptr<PSSpecifier>& /*row*/) override {
        Device::current().writePropertyList(file, {{"enabled", value}}, WriteMode::atomically);
        Device::current().postNotification(changeName);
    }
    void fail() { throw std::runtime_error("failed"); }
    void post() { Device::current().postNotification(changeName); }
    static void reload(const std::shared_ptr<NSObject>& page) {
        std::dynamic_pointer_cast<SwitchPage>(page)->reloadSpecifiers();
    }

    std::string rowName = "Enabled";
};

struct TraceTest : MemoryWorld {
    TraceTest() {
        Trace::setSink([this](const std::string& line) { lines.push_back(line); });
    }
    ~TraceTest() override { Trace::setSink(nullptr); }

    void tapSwitch() { page->tapRow({0, 0}); }

    std::shared_ptr<SwitchPage> page = std::make_shared<SwitchPage>();
    std::vector<std::string> lines;
};

using Lines = std::vector<std::string>;

std::string line(std::size_t depth, const std::string& what, const std::string& from,
                 const std::string& time = "0.0") {
    return "trace: " + std::string(8 - time.size(), ' ') + time + " ms  " + std::string(2 * depth, ' ') +
           what + (from.empty() ? "" : " from " + from);
}

constexpr const char* write = "effect write {path=\"/User/page.plist\"}";
constexpr const char* post = "effect post {name=\"com.example.changed\"}";

TEST_F(TraceTest, TapLeadsThroughMessagesToEffects) {
    tapSwitch();
    const std::string row = "PSSpecifier \"Enabled\"";
    const std::string inherited = " to SwitchPage (listed by PSViewController)";
    EXPECT_EQ(
        lines,
        (Lines{line(0, "tap " + row + " on SwitchPage", "PSListController::tapRow"),
               line(1, "message readPreferenceValue:(" + row + ")" + inherited, "row getter"),
               line(1, "message setPreferenceValue:specifier:(true, " + row + ")" + inherited, "row setter"),
               line(2, write, "Device::writePropertyList"), line(2, post, "Device::postNotification")}));
}

TEST_F(TraceTest, TimesAreMillisecondsOfTheDeviceSinceTheFirstLine) {
    runFor(1);
    page->performSelector("post");
    scheduleTimer(Seconds(0.0351), page, "post");
    runFor(100);
    EXPECT_EQ(lines,
              (Lines{line(0, "message post() to SwitchPage", ""), line(1, post, "Device::postNotification"),
                     line(0, "message post() to SwitchPage", "timer", "35.1"),
                     line(1, post, "Device::postNotification", "35.1")}));
}

TEST_F(TraceTest, NotificationsNameTheirObservers) {
    CFNotificationCenterGetDarwinNotifyCenter().addObserver(page, SwitchPage::reload, changeName,
                                                            SuspensionBehavior::coalesce);
    device.notificationCenter().addObserver(page, "post", "rotated");
    device.notificationCenter().postNotification("rotated");
    runFor(0);
    EXPECT_EQ(lines,
              (Lines{line(0, "notification \"rotated\"", "NSNotificationCenter"),
                     line(1, "message post(nothing) to SwitchPage", "NSNotificationCenter"),
                     line(2, post, "Device::postNotification"),
                     line(0, "notification \"com.example.changed\" to SwitchPage", "CFNotificationCenter"),
                     line(1, "effect reload {name=\"SwitchPage\"}", "PSListController::reloadSpecifiers")}));
}

TEST_F(TraceTest, ControlActionNamesItsSender) {
    const auto control = std::make_shared<UIControl>();
    control->addTarget(page, "post", UIControlEventTouchUpInside);
    control->sendActionsForControlEvents(UIControlEventTouchUpInside);
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines[0], "trace:      0.0 ms  message post(UIView) to SwitchPage from control action");
}

TEST_F(TraceTest, StepThatThrowsEndsItsIndentation) {
    EXPECT_THROW(page->performSelector("fail"), std::runtime_error);
    device.postNotification(changeName);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_TRUE(lines[1].starts_with("trace:      0.0 ms  effect post")) << lines[1];
}

TEST_F(TraceTest, ControlCharactersAndBadBytesDoNotReachTheTerminal) {
    page->rowName = "a\x1b[2J\nb\xC2\x9B\xFF";
    tapSwitch();
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(
        lines[0],
        "trace:      0.0 ms  tap PSSpecifier \"a?[2J?b??\" on SwitchPage from PSListController::tapRow");
}

TEST_F(TraceTest, LongValuesAreCutBetweenCharacters) {
    const std::string ascii(300, 'x');
    EXPECT_EQ(Trace::text(ascii), '"' + std::string(100, 'x') + "…\"");
    EXPECT_EQ(Trace::text(std::string(99, 'x') + "éé"), '"' + std::string(99, 'x') + "…\"");
    EXPECT_EQ(Trace::text(std::string(300, '\x80')), "\"…\"");
    EXPECT_EQ(Trace::text(std::string(100, 'x')), '"' + std::string(100, 'x') + '"');
    EXPECT_EQ(Trace::text(Array(300, 1)), "[" + Trace::text(Array(33, 1)).substr(1, 97) + ", …");
}

TEST_F(TraceTest, EachKindOfValueHasAText) {
    EXPECT_EQ(Trace::text({}), "nothing");
    EXPECT_EQ(Trace::text(Array{true, -1, 1.5, "a"}), "[true, -1, 1.5, \"a\"]");
    EXPECT_EQ(Trace::text(Dictionary{{"a", Data{1, 2}}, {"b", Array{}}}), "{a=2 bytes, b=[]}");
    EXPECT_EQ(Trace::text(Date{0}), "2001-01-01T00:00:00Z");
    EXPECT_EQ(Trace::text(Uid{7}), "UID 7");
    EXPECT_EQ(Trace::text(SwitchPage::classObject()), "SwitchPage");
    EXPECT_EQ(Trace::text(page), "SwitchPage");
}

TEST_F(TraceTest, TraceThatIsOffMakesNoText) {
    Trace::setSink(nullptr);
    EXPECT_FALSE(Trace::isOn());
    bool isAsked = false;
    const auto text = [&] {
        isAsked = true;
        return "text";
    };
    { const Trace::Step step("kind", text, ""); }
    EXPECT_FALSE(isAsked);
    Trace::setSink([](const std::string& /*line*/) {});
    { const Trace::Step step("kind", text, ""); }
    EXPECT_TRUE(isAsked);
}

} // namespace
} // namespace prismo
