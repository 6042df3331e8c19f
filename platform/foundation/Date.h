#pragma once

#include <compare>
#include <string>

namespace prismo {

/// A point in time, in seconds since 2001-01-01T00:00:00Z, the reference date of property lists.
struct Date {
    double secondsSinceReference = 0;
    auto operator<=>(const Date&) const = default;
};

/// The date in UTC, cut to whole seconds, in the form that property lists use: "2026-01-15T12:00:00Z".
/// Returns "" before the year 1 and after 9999.
std::string dateText(Date date);

} // namespace prismo
