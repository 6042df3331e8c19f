#pragma once

#include <string_view>

namespace prismo {

/// Does `a` stand before `b` in a list of names that a person reads? Letters compare without regard to case
/// and, the Latin ones, to accents ("Étude" between "Echo" and "Euro"), runs of digits by their value
/// ("App 2" before "App 10"); names that differ in these alone keep a fixed order.
bool namePrecedes(std::string_view a, std::string_view b);

} // namespace prismo
