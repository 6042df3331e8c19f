#pragma once

#include "platform/foundation/Result.h"
#include "platform/foundation/Value.h"

#include <cstdint>
#include <span>
#include <string>

namespace prismo {

/// The dictionary in the bytes of a property-list file, XML or binary, which the bytes themselves show.
///
/// Fails as malformed if they hold anything else: another kind at the top, or a file that was cut, damaged or
/// crafted to do harm. Fails as unreadable if they are beyond the limits of PropertyListGuard.h; what comes
/// before the limit was in order, and the rest was not looked at. `path` is for the problem.
///
/// All text in the result is UTF-8 without NUL. In XML, a dictionary that has only an integer under "CF$UID"
/// is a `Uid`.
Result<Dictionary> parseDictionary(std::span<const std::uint8_t> bytes, const std::string& path);
/// The same with only the values of these keys, for a caller that needs little of many files.
Result<Dictionary> parseDictionary(std::span<const std::uint8_t> bytes, std::span<const char* const> keys,
                                   const std::string& path);

} // namespace prismo
