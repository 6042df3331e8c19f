#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace prismo {

/// The scheme, in lower case, of a text that can be handed to another program as a link. Returns nullopt if
/// the text has no scheme, contains a character that a link must escape or a malformed escape, or is longer
/// than 65,536 bytes.
std::optional<std::string> linkScheme(std::string_view url);

/// Escapes a text for use as part of a link (RFC 3986): every byte except ASCII letters, digits and "-._~"
/// becomes "%XX".
std::string percentEncoded(std::string_view text);

} // namespace prismo
