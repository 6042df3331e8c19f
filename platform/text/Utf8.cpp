#include "platform/text/Utf8.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace prismo {

namespace {

/// The length in bytes of the sequence at the start of `text`, which is not ASCII; 0 if it is malformed.
std::size_t sequenceLength(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char first = byte(0);
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || text.size() < length) return 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((byte(i) & 0xC0) != 0x80) return 0;
    const unsigned char second = byte(1);
    const bool overlong = (first == 0xE0 && second < 0xA0) || (first == 0xF0 && second < 0x90);
    const bool surrogate = first == 0xED && second > 0x9F;
    const bool beyond = first == 0xF4 && second > 0x8F;
    return overlong || surrogate || beyond ? 0 : length;
}

/// True if all eight bytes are ASCII and none is NUL.
bool isPlainAscii(const char* eightBytes) {
    constexpr std::uint64_t high = 0x8080808080808080;
    constexpr std::uint64_t ones = 0x0101010101010101;
    std::uint64_t word = 0;
    std::memcpy(&word, eightBytes, sizeof word);
    return (word & high) == 0 && ((word - ones) & ~word & high) == 0;
}

} // namespace

bool isPlainUtf8(std::string_view text) {
    for (std::size_t i = 0; i < text.size();) {
        if (text.size() - i >= 8 && isPlainAscii(text.data() + i)) {
            i += 8;
            continue;
        }
        if (text[i] == '\0') return false;
        if (static_cast<unsigned char>(text[i]) < 0x80) {
            ++i;
            continue;
        }
        const auto length = sequenceLength(text.substr(i));
        if (length == 0) return false;
        i += length;
    }
    return true;
}

bool isXmlText(std::string_view text) {
    const auto isControl = [](char c) {
        return static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\n' && c != '\r';
    };
    return std::ranges::none_of(text, isControl) && text.find("\xEF\xBF\xBE") == std::string_view::npos &&
           text.find("\xEF\xBF\xBF") == std::string_view::npos;
}

} // namespace prismo
