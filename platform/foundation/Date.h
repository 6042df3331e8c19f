#pragma once

#include <compare>
#include <string>

namespace prismo {

/// A moment, in seconds since 2001-01-01T00:00:00Z, the reference date of property lists.
struct Date {
    double secondsSinceReference = 0;
    auto operator<=>(const Date&) const = default;
};

/// In UTC, cut to whole seconds, in the one form that property lists have: "2026-01-15T12:00:00Z". "" before
/// the year 1 and after 9999.
std::string dateText(Date date);

} // namespace prismo
