#pragma once

#include "platform/uikit/graphics/UIColor.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace prismo {

/// Reads "rrggbb" or "rgb" in either case, optionally with "#" in front, and optionally followed by ":" and
/// an alpha from 0 to 1 (1 by default). Returns nullopt for any other text.
std::optional<UIColor> colorFromText(std::string_view text);

/// The color of `text`, or of `fallback` if `text` is not a color text, or white if neither is one.
UIColor SWKParseColorString(std::string_view text, std::string_view fallback);

/// Converts a component to a byte. Clamps values to the range 0 to 1; NaN becomes 0.
std::uint8_t byteFromComponent(double component);

/// The color as "#rrggbb" in lower case, without its alpha.
std::string hexFromColor(const UIColor& color);

} // namespace prismo
