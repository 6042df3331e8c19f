#include "tests/settings/model/PhoneWorld.h"

#include "kit/FBPrefsTint.h"

#include <QColor>

namespace prismo::settings {
namespace {

struct PageStackTest : PhoneWorld {
    PageStackTest() { openModule(); }
    QVariant isLeaving(int position) { return roleOf(*phone.pages(), position, "isLeaving"); }
    std::shared_ptr<PSListController> module() {
        return std::dynamic_pointer_cast<PSListController>(top().controller());
    }
};

TEST_F(PageStackTest, LeavingPageStaysUntilItIsRemoved) {
    auto* const left = phone.pages()->top();
    phone.back();
    settle();
    EXPECT_EQ(phone.pages()->depth(), 1);
    EXPECT_EQ(phone.pages()->rowCount(), 2);
    EXPECT_EQ(isLeaving(1), true);
    phone.pages()->remove(left);
    EXPECT_EQ(phone.pages()->rowCount(), 1);
}

TEST_F(PageStackTest, BackKeepsTheFirstPage) {
    phone.back();
    phone.back();
    phone.back();
    settle();
    EXPECT_EQ(phone.pages()->depth(), 1);
}

TEST_F(PageStackTest, OnlyALeavingPageCanBeRemoved) {
    phone.pages()->remove(phone.pages()->top());
    EXPECT_EQ(phone.pages()->rowCount(), 2);
}

TEST_F(PageStackTest, BarHasTheTintSetByTheKit) {
    FBSetPrefsTint(module(), UIColor{1, 0, 0, 1});
    settle();
    EXPECT_EQ(phone.property("tint").value<QColor>(), QColor("#ff0000"));
    EXPECT_EQ(phone.property("titleColor").value<QColor>(), QColor("#ff0000"));
    EXPECT_EQ(top().property("switchTint").value<QColor>(), QColor("#ff0000"));
    EXPECT_EQ(top().property("tint").value<QColor>(), QColor("#ff0000"));
}

TEST_F(PageStackTest, ResetTintIsTheDefaultAgain) {
    FBSetPrefsTint(module(), UIColor{1, 0, 0, 1});
    settle();
    ASSERT_TRUE(phone.property("tint").value<QColor>().isValid());
    FBResetPrefsTint(module());
    settle();
    EXPECT_FALSE(phone.property("tint").value<QColor>().isValid());
    EXPECT_FALSE(top().property("tint").value<QColor>().isValid());
}

TEST_F(PageStackTest, RightButtonHasALabel) { EXPECT_EQ(top().property("rightLabel"), "Share"); }

TEST_F(PageStackTest, ClosedPagesShowNoBanner) {
    phone.back();
    settlePage();
    tap("Prismo 2");
    phone.back();
    settlePage();
    tap("Prismo 2");
    device.postNotification(changeNotification);
    settlePage();
    EXPECT_EQ(phone.banners().size(), 1);
}

TEST_F(PageStackTest, OpenChooserShowsAChangeFromOutside) {
    tap("Keyboard Enabled");
    ASSERT_EQ(phone.pages()->depth(), 3);
    EXPECT_TRUE(role(row("Global"), "isChecked").toBool());
    store({{"keyboard_color_type", 2}});
    device.postNotification(changeNotification);
    settlePage();
    EXPECT_FALSE(role(row("Global"), "isChecked").toBool());
    EXPECT_TRUE(role(row("Custom"), "isChecked").toBool());
}

TEST_F(PageStackTest, RightButtonOpensTheComposeSheet) {
    EXPECT_EQ(top().property("hasRightButton"), true);
    top().tapRightButton();
    settle();
    EXPECT_EQ(phone.overlays()->depth(), 1);
}

} // namespace
} // namespace prismo::settings
