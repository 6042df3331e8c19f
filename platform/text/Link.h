#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace prismo {

/// The scheme, in lower case, of what can be handed to another program as a link. Nothing where the text has
/// no scheme, holds characters that a link has to escape, or is longer than 65,536 bytes.
std::optional<std::string> linkScheme(std::string_view url);

/// As a part of a link (RFC 3986): all bytes but ASCII letters, digits and "-._~" as "%XX".
std::string percentEncoded(std::string_view text);

} // namespace prismo
