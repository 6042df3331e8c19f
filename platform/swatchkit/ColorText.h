#pragma once

#include "platform/uikit/graphics/UIColor.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace prismo {

/// Reads "rrggbb" or "rgb", each with or without "#" before it and in either case, and with or without ":"
/// and an alpha from 0 to 1 after it (opaque without); nothing for any other text.
std::optional<UIColor> colorFromText(std::string_view text);

/// The colour of `text`; where that is no colour text, of `fallback`; where that is none either, white.
UIColor SWKParseColorString(std::string_view text, std::string_view fallback);

/// A component as a byte; what is beyond 0 and 1 is there, and what is no number is 0.
std::uint8_t byteFromComponent(double component);

/// "#rrggbb" in lower case, without the alpha.
std::string hexFromColor(const UIColor& color);

} // namespace prismo
