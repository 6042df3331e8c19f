#pragma once

#include <string_view>

namespace prismo {

/// What every PNG file begins with.
inline constexpr std::string_view pngSignature = "\x89PNG\r\n\x1a\n";

} // namespace prismo
