#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace prismo::cli {

/// The words of one line, quoted as in a shell: white space separates them, '…' and "…" keep it, a backslash
/// keeps the next character (within "…" only " \ $ `). "#" starts a comment if it is first on the line or
/// stands alone between words; "#3" and "#3366ff" after another word are words. Nothing is expanded. Throws
/// CommandError (wrong usage) if a quote is left open or the line ends in a backslash.
std::vector<std::string> scriptWords(std::string_view line);

} // namespace prismo::cli
