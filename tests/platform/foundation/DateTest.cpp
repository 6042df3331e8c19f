#include "platform/foundation/Date.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace prismo {
namespace {

TEST(Date, DateIsCutToTheSecondBeforeIt) {
    EXPECT_EQ(dateText({0}), "2001-01-01T00:00:00Z");
    EXPECT_EQ(dateText({59.9}), "2001-01-01T00:00:59Z");
    EXPECT_EQ(dateText({-0.1}), "2000-12-31T23:59:59Z");
}

TEST(Date, DateHasATextFromTheYear1To9999) {
    constexpr double first = -63'113'904'000;
    constexpr double last = 252'423'993'599;
    EXPECT_EQ(dateText({first}), "0001-01-01T00:00:00Z");
    EXPECT_EQ(dateText({last + 0.5}), "9999-12-31T23:59:59Z");
    for (const double none : {first - 1, last + 1, std::nan(""), std::numeric_limits<double>::infinity()})
        EXPECT_EQ(dateText({none}), "") << none;
}

} // namespace
} // namespace prismo
