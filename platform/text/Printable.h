#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace prismo {

/// `text` with "?" in place of each control character and each byte that is not UTF-8, so that a name from a
/// file cannot control the terminal.
std::string printable(std::string_view text);

/// The number of columns that a UTF-8 text takes, one for each character.
std::size_t columns(std::string_view text);

} // namespace prismo
