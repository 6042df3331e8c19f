#pragma once

#include <string_view>

namespace prismo {

/// True for well-formed UTF-8 without NUL. Surrogates and overlong sequences are malformed.
bool isPlainUtf8(std::string_view text);

/// True if an XML file can hold this UTF-8 text. XML cannot represent control characters other than tab, line
/// feed and carriage return, nor U+FFFE and U+FFFF.
bool isXmlText(std::string_view text);

} // namespace prismo
