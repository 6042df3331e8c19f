#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

namespace prismo {

/// `format` with each "%@" replaced by the next argument; nullopt shows as "(null)". Placeholders without an
/// argument stay, and arguments without a placeholder are dropped.
std::string formatted(std::string_view format, std::initializer_list<std::optional<std::string>> arguments);

/// Converts ASCII letters to lower case and leaves everything else as it is.
std::string lowercased(std::string_view text);

} // namespace prismo
