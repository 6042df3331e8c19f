#pragma once

#include <string_view>

namespace prismo {

/// Is it well-formed UTF-8 without a NUL? Surrogates and what is written longer than needed are not.
bool isPlainUtf8(std::string_view text);

/// Can an XML file hold this UTF-8? It has no spelling for a control character besides tab, line feed and
/// carriage return, nor for U+FFFE and U+FFFF.
bool isXmlText(std::string_view text);

} // namespace prismo
