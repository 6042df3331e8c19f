#include "platform/applist/NameOrder.h"

#include <algorithm>
#include <compare>
#include <cstddef>

namespace prismo {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// Removes the digits at the start of `text` and returns them without leading zeros.
std::string_view takeNumber(std::string_view& text) {
    const auto end = std::ranges::find_if_not(text, isDigit);
    auto digits = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    text.remove_prefix(digits.size());
    digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
    return digits;
}

// The base letter of each character in two ranges of Unicode; a space if the character is not a letter.
// U+00C0 to U+017F
constexpr std::string_view latin = "aaaaaaaceeeeiiiidnooooo ouuuuytsaaaaaaaceeeeiiiidnooooo ouuuuyty"
                                   "aaaaaaccccccccddddeeeeeeeeeegggggggghhhhiiiiiiiiiiiijjkkklllllll"
                                   "lllnnnnnnnnnoooooooorrrrrrssssssssttttttuuuuuuuuuuuuwwyyyzzzzzzs";
// U+1E00 to U+1EFF
constexpr std::string_view latinAdditional =
    "aabbbbbbccddddddddddeeeeeeeeeeffgghhhhhhhhhhiiiikkkkkkllllllllmm"
    "mmmmnnnnnnnnoooooooopppprrrrrrrrssssssssssttttttttuuuuuuuuuuvvvv"
    "wwwwwwwwwwxxxxyyzzzzzzhtwyasssdaaaaaaaaaaaaaaaaaaaaaaaaeeeeeeeee"
    "eeeeeeeeiiiioooooooooooooooooooooooouuuuuuuuuuuuuuyyyyyyyyllvvyy";

unsigned byteAt(std::string_view text, std::size_t index) {
    return index < text.size() ? static_cast<unsigned char>(text[index]) : 0;
}

/// The code point of the two-byte or three-byte character at the start of `text`; 0 for anything else.
unsigned shortCharacter(std::string_view text) {
    const auto isContinuation = [&](std::size_t index) { return (byteAt(text, index) & 0xC0U) == 0x80; };
    const auto lead = byteAt(text, 0);
    if ((lead & 0xE0U) == 0xC0 && isContinuation(1)) return (lead & 0x1FU) << 6 | (byteAt(text, 1) & 0x3FU);
    if ((lead & 0xF0U) == 0xE0 && isContinuation(1) && isContinuation(2))
        return (lead & 0xFU) << 12 | (byteAt(text, 1) & 0x3FU) << 6 | (byteAt(text, 2) & 0x3FU);
    return 0;
}

/// Skips combining marks: a separate accent is ignored just as one that is part of its letter.
void skipMarks(std::string_view& text) {
    for (auto mark = shortCharacter(text); mark >= 0x300 && mark < 0x370; mark = shortCharacter(text))
        text.remove_prefix(2);
}

/// Removes a letter and returns it without accent and in lower case. Anything else it removes and returns one
/// byte at a time.
unsigned takeFolded(std::string_view& text) {
    const auto character = shortCharacter(text);
    auto folded = byteAt(text, 0);
    std::size_t length = 1;
    const auto letter = [&](std::string_view block, unsigned first) {
        if (character < first || character - first >= block.size() || block[character - first] == ' ') return;
        folded = static_cast<unsigned char>(block[character - first]);
        length = character < 0x800 ? 2 : 3;
    };
    letter(latin, 0xC0);
    letter(latinAdditional, 0x1E00);
    if (folded >= 'A' && folded <= 'Z') folded += 'a' - 'A';
    text.remove_prefix(length);
    skipMarks(text);
    return folded;
}

/// Folds on the fly: sorting compares each name many times, and making a folded copy each time would take
/// longer than the comparison.
std::strong_ordering compareFolded(std::string_view a, std::string_view b) {
    while (!a.empty() && !b.empty()) {
        if (isDigit(a.front()) && isDigit(b.front())) {
            const auto left = takeNumber(a);
            const auto right = takeNumber(b);
            if (const auto order = left.size() <=> right.size(); order != 0) return order;
            if (const auto order = left <=> right; order != 0) return order;
            continue;
        }
        if (const auto order = takeFolded(a) <=> takeFolded(b); order != 0) return order;
    }
    return a.size() <=> b.size();
}

} // namespace

bool namePrecedes(std::string_view a, std::string_view b) {
    const auto order = compareFolded(a, b);
    return order != 0 ? order < 0 : a < b;
}

} // namespace prismo
