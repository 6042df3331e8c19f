#pragma once

#include "platform/foundation/Value.h"

#include <cstdint>
#include <optional>
#include <span>
#include <variant>

namespace prismo {

/// The dictionary in the bytes of a property-list file, XML or binary, which the bytes themselves tell.
///
/// Nothing where they hold anything else: another kind at the top, a file that was cut, damaged or made to do
/// harm, or one beyond the limits of PropertyListGuard.h. All text in the result is UTF-8 without NUL. In XML
/// a dictionary of nothing but an integer under "CF$UID" stands for a `Uid`.
std::optional<Dictionary> readDictionary(std::span<const std::uint8_t> bytes);
/// The same with the values of these keys alone, for who reads little of many files.
std::optional<Dictionary> readDictionary(std::span<const std::uint8_t> bytes,
                                         std::span<const char* const> keys);

/// Why bytes are no dictionary here.
enum class Refusal {
    malformed,
    /// What comes before a limit was in order. The rest is not looked at.
    beyondLimits,
};
/// The same, told apart.
std::variant<Dictionary, Refusal> parseDictionary(std::span<const std::uint8_t> bytes);

} // namespace prismo
