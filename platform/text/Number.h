#pragma once

#include <charconv>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>

namespace prismo {

// Conversions between numbers and text, independent of the locale.

/// Parses all of `text` as a number; returns nullopt if it is not one or does not fit the type. `format` is
/// the base of an integer (10 by default) or the std::chars_format of a real.
template <typename Number, typename... Format>
std::optional<Number> numberFromText(std::string_view text, Format... format) {
    Number value{};
    const auto* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, value, format...);
    return read.ec == std::errc() && read.ptr == end ? std::optional(value) : std::nullopt;
}

/// The shortest text that reads back as the same number.
std::string shortestText(double number);
/// The number with six decimals, like "%f".
std::string decimalText(double number);

/// Two lowercase hexadecimal digits for each byte.
std::string hexText(std::span<const std::uint8_t> bytes);
std::string hexText(std::uint8_t byte);

} // namespace prismo
