#pragma once

#include <string_view>

namespace prismo {

/// True if `a` comes before `b` in a list of names for people. Ignores case and, in Latin letters, accents
/// ("Étude" is between "Echo" and "Euro"); compares runs of digits by value ("App 2" is before "App 10").
/// Names that differ only in these respects have a fixed order.
bool namePrecedes(std::string_view a, std::string_view b);

} // namespace prismo
