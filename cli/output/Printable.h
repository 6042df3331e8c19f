#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace prismo::cli {

/// `text` with control characters and bytes that are no UTF-8 shown as "?", so that a name from a file cannot
/// drive the terminal.
std::string printable(std::string_view text);

/// How many columns a UTF-8 text takes, one for each character.
std::size_t columns(std::string_view text);

} // namespace prismo::cli
