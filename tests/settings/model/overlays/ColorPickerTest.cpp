#include "settings/model/overlays/ColorPicker.h"
#include "tests/settings/model/PhoneWorld.h"

#include <QColor>
#include <QSettings>
#include <QTemporaryDir>

namespace prismo::settings {
namespace {

struct ColorPickerTest : PhoneWorld {
    ColorPickerTest() {
        store({{"global_color", "#808080:1.000000"}});
        openModule();
        tap("Global Color");
    }
    ColorPicker& picker() { return dynamic_cast<ColorPicker&>(*phone.overlays()->top()); }
};

TEST_F(ColorPickerTest, OpensWithTheStoredColor) {
    EXPECT_EQ(picker().startColor(), QColor("#808080"));
    EXPECT_EQ(picker().hexText(), "#808080");
    EXPECT_FALSE(picker().showsAlpha());
}

TEST_F(ColorPickerTest, TypedColorIsStored) {
    EXPECT_TRUE(picker().setHexText("3366FF"));
    picker().accept();
    settlePage();
    EXPECT_EQ(valueForKey(stored().value(), "global_color").text(), "#3366ff:1.000000");
    EXPECT_EQ(role(row("Global Color"), "swatch").value<QColor>(), QColor("#3366ff"));
}

TEST_F(ColorPickerTest, InvalidTextChangesNothing) {
    EXPECT_FALSE(picker().setHexText("#33"));
    EXPECT_EQ(picker().hexText(), "#808080");
}

TEST_F(ColorPickerTest, HueOfAGrayIsKept) {
    picker().setHSB(0.5, 0, 0.5);
    EXPECT_EQ(picker().hue(), 0.5);
    picker().setHSB(picker().hue(), 1, 1);
    EXPECT_EQ(picker().color(), QColor("#00ffff"));
}

TEST_F(ColorPickerTest, DismissingStoresNothing) {
    EXPECT_TRUE(picker().setHexText("3366FF"));
    picker().dismiss();
    settlePage();
    EXPECT_EQ(valueForKey(stored().value(), "global_color").text(), "#808080:1.000000");
    EXPECT_TRUE(phone.recentColors()->texts().isEmpty());
}

TEST_F(ColorPickerTest, AcceptedColorBecomesRecent) {
    EXPECT_TRUE(picker().setHexText("3366FF"));
    picker().accept();
    settle();
    EXPECT_EQ(phone.recentColors()->texts(), QStringList{"#3366ff"});
}

TEST_F(ColorPickerTest, CanceledPickerCannotBeAccepted) {
    auto& canceled = picker();
    EXPECT_TRUE(canceled.setHexText("3366FF"));
    canceled.dismiss();
    canceled.accept();
    settlePage();
    EXPECT_TRUE(phone.recentColors()->texts().isEmpty());
    EXPECT_EQ(valueForKey(stored().value(), "global_color").text(), "#808080:1.000000");
}

TEST(RecentColorsTest, AreKeptInTheStateFileNewestFirst) {
    const QTemporaryDir directory;
    const auto file = directory.filePath("deeper/settings.ini");
    RecentColors first(file);
    for (const auto* text : {"#111111", "#222222", "#111111"})
        first.add(text);
    EXPECT_EQ(RecentColors(file).texts(), QStringList({"#111111", "#222222"}));
}

TEST(RecentColorsTest, AreNormalizedWhenRead) {
    const QTemporaryDir directory;
    const auto file = directory.filePath("settings.ini");
    const QStringList kept{"36f", "#3366FF", "no color", "#111111:0.5"};
    QSettings(file, QSettings::IniFormat).setValue("recentColors", kept);
    EXPECT_EQ(RecentColors(file).texts(), QStringList({"#3366ff", "#111111"}));
}

TEST(RecentColorsTest, AreAtMostEight) {
    RecentColors colors("");
    for (int i = 10; i < 30; ++i)
        colors.add(QString("#0000%1").arg(i));
    EXPECT_EQ(colors.texts().size(), 8);
    EXPECT_EQ(colors.texts().first(), "#000029");
}

} // namespace
} // namespace prismo::settings
