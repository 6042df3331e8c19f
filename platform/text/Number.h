#pragma once

#include <charconv>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>

namespace prismo {

// Numbers and their texts, whatever the locale.

/// The number that all of `text` is; nothing where it is none, or is beyond the type. In decimal digits, if
/// `format` says nothing else: the base of an integer, the std::chars_format of a real.
template <typename Number, typename... Format>
std::optional<Number> numberFromText(std::string_view text, Format... format) {
    Number value{};
    const auto* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, value, format...);
    return read.ec == std::errc() && read.ptr == end ? std::optional(value) : std::nullopt;
}

/// The shortest text that reads back as the same number.
std::string shortestText(double number);
/// With six decimals and a point.
std::string decimalText(double number);

/// Two hexadecimal digits for each byte, in lower case.
std::string hexText(std::span<const std::uint8_t> bytes);
std::string hexText(std::uint8_t byte);

} // namespace prismo
