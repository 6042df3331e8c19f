#include "platform/foundation/Date.h"

#include <array>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace prismo {

std::string dateText(Date date) {
    using namespace std::chrono;
    constexpr sys_seconds reference = sys_days(year(2001) / January / 1);
    constexpr auto first =
        static_cast<double>((sys_seconds(sys_days(year(1) / January / 1)) - reference).count());
    constexpr auto end =
        static_cast<double>((sys_seconds(sys_days(year(10000) / January / 1)) - reference).count());
    const double whole = std::floor(date.secondsSinceReference);
    if (!(whole >= first && whole < end)) return {};
    const auto moment = reference + seconds(static_cast<std::int64_t>(whole));
    const auto day = floor<days>(moment);
    const year_month_day calendar(day);
    const hh_mm_ss time(moment - day);
    std::array<char, 64> buffer{};
    const int size = std::snprintf(
        buffer.data(), buffer.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ", int(calendar.year()),
        unsigned(calendar.month()), unsigned(calendar.day()), static_cast<int>(time.hours().count()),
        static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count()));
    return {buffer.data(), static_cast<std::size_t>(size)};
}

} // namespace prismo
