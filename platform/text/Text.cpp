#include "platform/text/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <limits>

namespace prismo {

namespace {

void appendHex(std::string& text, std::uint8_t byte, std::string_view digits) {
    text += digits[byte / 16];
    text += digits[byte % 16];
}

} // namespace

std::string formatted(std::string_view format, std::initializer_list<std::optional<std::string>> arguments) {
    constexpr std::string_view placeholder = "%@";
    std::string result;
    for (const auto& argument : arguments) {
        const auto at = format.find(placeholder);
        if (at == std::string_view::npos) break;
        result.append(format.substr(0, at)).append(argument.value_or("(null)"));
        format.remove_prefix(at + placeholder.size());
    }
    return result.append(format);
}

std::string decimalText(double number) {
    constexpr int decimals = 6;
    std::array<char, std::numeric_limits<double>::max_exponent10 + decimals + 3> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                   std::chars_format::fixed, decimals);
    return {digits.data(), end.ptr};
}

std::string hexText(std::span<const std::uint8_t> bytes) {
    std::string result;
    for (const auto byte : bytes)
        appendHex(result, byte, "0123456789abcdef");
    return result;
}

std::string hexText(std::uint8_t byte) { return hexText({&byte, 1}); }

std::string percentEncoded(std::string_view text) {
    // Not the C library's classes of characters, which go by the locale.
    constexpr std::string_view unreserved =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~";
    std::string result;
    for (const char c : text) {
        if (unreserved.find(c) != std::string_view::npos)
            result += c;
        else
            appendHex(result += '%', static_cast<std::uint8_t>(c), "0123456789ABCDEF");
    }
    return result;
}

std::string dateText(Date date) {
    using namespace std::chrono;
    constexpr sys_seconds reference = sys_days(year(2001) / January / 1);
    constexpr auto first =
        static_cast<double>((sys_seconds(sys_days(year(1) / January / 1)) - reference).count());
    constexpr auto end =
        static_cast<double>((sys_seconds(sys_days(year(10000) / January / 1)) - reference).count());
    const double whole = std::floor(date.secondsSinceReference);
    if (!(whole >= first && whole < end)) return {};
    const auto moment = reference + seconds(static_cast<std::int64_t>(whole));
    const auto day = floor<days>(moment);
    const year_month_day calendar(day);
    const hh_mm_ss time(moment - day);
    std::array<char, 64> buffer{};
    const int size = std::snprintf(
        buffer.data(), buffer.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ", int(calendar.year()),
        unsigned(calendar.month()), unsigned(calendar.day()), static_cast<int>(time.hours().count()),
        static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count()));
    return {buffer.data(), static_cast<std::size_t>(size)};
}

std::string lowercased(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return result;
}

} // namespace prismo
