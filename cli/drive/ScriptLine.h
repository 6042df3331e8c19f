#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace prismo::cli {

/// The words of one line, quoted as in a shell: white space separates them, '…' and "…" keep it, a backslash
/// keeps the next character (within "…" only of " \ $ `). "#" begins a comment where it is the first thing on
/// the line or stands alone between words; "#3" and "#3366ff" behind another word are words. Nothing is
/// expanded. Throws CommandError (wrong usage) where a quote is left open or a backslash is the last.
std::vector<std::string> scriptWords(std::string_view line);

} // namespace prismo::cli
