#include "settings/model/Taps.h"

#include "platform/foundation/Trace.h"

#include <gtest/gtest.h>
#include <QCoreApplication>
#include <string>
#include <vector>

namespace prismo::settings {
namespace {

TEST(TapsTest, TapNeverRunsInsideTheCallThatAddsIt) {
    Taps taps;
    bool isPlayed = false;
    taps.add("test", [&] { isPlayed = true; });
    EXPECT_FALSE(isPlayed);
    QCoreApplication::processEvents();
    EXPECT_TRUE(isPlayed);
}

TEST(TapsTest, TapAddedDuringAnotherWaitsItsTurn) {
    Taps taps;
    std::string played;
    taps.add("test", [&] {
        played += "a(";
        taps.add("test", [&] { played += "b"; });
        QCoreApplication::processEvents(); // like a page that waits
        played += ")";
    });
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    EXPECT_EQ(played, "a()b");
    EXPECT_TRUE(taps.isIdle());
}

TEST(TapsTest, TraceShowsWhereATapCameFromAndWhenItsTurnCame) {
    std::vector<std::string> steps;
    Trace::setSink([&](const std::string& line) { steps.push_back(line.substr(line.find("ms") + 4)); });
    Taps taps;
    taps.add("Table::tap", [&] { steps.emplace_back("the tap"); });
    QCoreApplication::processEvents();
    Trace::setSink(nullptr);
    EXPECT_EQ(steps, (std::vector<std::string>{"tap queued from Table::tap", "tap played from Table::tap",
                                               "the tap"}));
}

} // namespace
} // namespace prismo::settings
