#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

namespace prismo {

/// `format` with each "%@" replaced by the next argument; an absent one shows as "(null)".
std::string formatted(std::string_view format, std::initializer_list<std::optional<std::string>> arguments);

/// ASCII letters only; everything else stays as it is.
std::string lowercased(std::string_view text);

} // namespace prismo
