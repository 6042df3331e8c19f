#pragma once

#include "platform/foundation/Value.h"

#include <charconv>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>

namespace prismo {

/// `format` with each "%@" replaced by the next argument; an absent one shows as "(null)".
std::string formatted(std::string_view format, std::initializer_list<std::optional<std::string>> arguments);

/// With six decimals and a point, whatever the locale.
std::string decimalText(double number);

/// The number that all of `text` is, in decimal digits; nothing where it is none, or is beyond the type.
template <typename Number>
std::optional<Number> numberFromText(std::string_view text) {
    Number value{};
    const auto* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, value);
    return read.ec == std::errc() && read.ptr == end ? std::optional(value) : std::nullopt;
}

/// Two hexadecimal digits for each byte, in lower case.
std::string hexText(std::span<const std::uint8_t> bytes);
std::string hexText(std::uint8_t byte);

/// As a part of a link (RFC 3986): all bytes but ASCII letters, digits and "-._~" as "%XX".
std::string percentEncoded(std::string_view text);
/// In UTC, cut to whole seconds, in the one form that property lists have: "2026-01-15T12:00:00Z". "" before
/// the year 1 and after 9999.
std::string dateText(Date date);

/// ASCII letters only; everything else stays as it is.
std::string lowercased(std::string_view text);

} // namespace prismo
