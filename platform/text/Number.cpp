#include "platform/text/Number.h"

#include <array>
#include <limits>

namespace prismo {

std::string shortestText(double number) {
    std::array<char, 32> digits{};
    return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr};
}

std::string decimalText(double number) {
    constexpr int decimals = 6;
    std::array<char, std::numeric_limits<double>::max_exponent10 + decimals + 3> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                   std::chars_format::fixed, decimals);
    return {digits.data(), end.ptr};
}

std::string hexText(std::span<const std::uint8_t> bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string result;
    for (const auto byte : bytes)
        (result += digits[byte / 16]) += digits[byte % 16];
    return result;
}

std::string hexText(std::uint8_t byte) { return hexText({&byte, 1}); }

} // namespace prismo
