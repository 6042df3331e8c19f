#include "settings/model/Taps.h"

#include <gtest/gtest.h>
#include <QCoreApplication>
#include <string>

namespace prismo::settings {
namespace {

TEST(TapsTest, TapIsNeverPlayedWithinTheCallThatBringsIt) {
    Taps taps;
    bool isPlayed = false;
    taps.add([&] { isPlayed = true; });
    EXPECT_FALSE(isPlayed);
    QCoreApplication::processEvents();
    EXPECT_TRUE(isPlayed);
}

TEST(TapsTest, TapThatComesWhileAnotherIsPlayedWaitsItsTurn) {
    Taps taps;
    std::string played;
    taps.add([&] {
        played += "a(";
        taps.add([&] { played += "b"; });
        QCoreApplication::processEvents(); // a page that waits
        played += ")";
    });
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    EXPECT_EQ(played, "a()b");
    EXPECT_TRUE(taps.isIdle());
}

} // namespace
} // namespace prismo::settings
