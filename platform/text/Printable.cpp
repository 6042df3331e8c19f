#include "platform/text/Printable.h"

#include "platform/text/Utf8.h"

#include <algorithm>

namespace prismo {

namespace {

bool continuesCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

/// The length in bytes of the character at the start of the text; 1 for a byte that is not UTF-8.
std::size_t characterLength(std::string_view text) {
    const auto first = static_cast<unsigned char>(text.front());
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : first >= 0x80 ? 2 : 1;
    return isPlainUtf8(text.substr(0, length)) ? length : 1;
}

bool isShown(std::string_view character) {
    const auto first = static_cast<unsigned char>(character.front());
    if (character.size() == 1) return first >= 0x20 && first < 0x7F;
    // U+0080 to U+009F are control characters too.
    return first != 0xC2 || static_cast<unsigned char>(character[1]) >= 0xA0;
}

} // namespace

std::string printable(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const auto character = text.substr(0, characterLength(text));
        result += isShown(character) ? character : "?";
        text.remove_prefix(character.size());
    }
    return result;
}

std::size_t columns(std::string_view text) {
    return text.size() - static_cast<std::size_t>(std::ranges::count_if(text, continuesCharacter));
}

} // namespace prismo
