#include "platform/foundation/Value.h"

#include "platform/foundation/Overloaded.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <limits>
#include <utility>

namespace prismo {

namespace {

std::string_view skipSpace(std::string_view text) {
    const auto* begin =
        std::find_if_not(text.begin(), text.end(), [](unsigned char c) { return std::isspace(c) != 0; });
    return {begin, static_cast<std::size_t>(text.end() - begin)};
}

std::string_view skipPlus(std::string_view text) {
    return text.size() > 1 && text[0] == '+' && text[1] != '-' ? text.substr(1) : text;
}

bool readBool(std::string_view text) {
    text = skipSpace(text);
    if (text.empty()) return false;
    if (std::string_view("YyTt").find(text.front()) != std::string_view::npos) return true;
    if (text.front() == '+' || text.front() == '-') text.remove_prefix(1);
    const auto digit = text.find_first_not_of('0');
    return digit != std::string_view::npos && text[digit] >= '1' && text[digit] <= '9';
}

template <std::integral Integer>
Integer readInteger(std::string_view text) {
    text = skipPlus(skipSpace(text));
    Integer result = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), result);
    if (error != std::errc::result_out_of_range) return result;
    return text.front() == '-' ? std::numeric_limits<Integer>::min() : std::numeric_limits<Integer>::max();
}

double readDouble(std::string_view text) {
    text = skipPlus(skipSpace(text));
    double result = 0;
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), result, std::chars_format::general);
    if (error == std::errc::result_out_of_range) {
        // The sign of the exponent, or else the digits before the point, say whether it is too large or too
        // small.
        const std::string_view number(text.data(), static_cast<std::size_t>(end - text.data()));
        const auto exponent = number.find_first_of("eE");
        const bool tiny = exponent != std::string_view::npos
                              ? number[exponent + 1] == '-'
                              : number.find_first_of("123456789") > number.find('.');
        if (tiny) return 0;
        return text.front() == '-' ? -HUGE_VAL : HUGE_VAL;
    }
    return std::isfinite(result) ? result : 0;
}

template <std::integral Integer>
Integer saturate(double real) {
    if (std::isnan(real)) return 0;
    // 2^63 and 2^31 are exact as doubles; the integers just below may not be.
    const double limit = std::ldexp(1.0, std::numeric_limits<Integer>::digits);
    if (real >= limit) return std::numeric_limits<Integer>::max();
    if (real <= -limit) return std::numeric_limits<Integer>::min();
    return static_cast<Integer>(real);
}

template <std::integral Integer>
Integer integerReading(const Value& value) {
    return value.visit(Overloaded{
        [](bool held) { return static_cast<Integer>(held); },
        [](std::int64_t held) { return static_cast<Integer>(held); },
        [](std::uint64_t held) { return static_cast<Integer>(held); },
        [](double held) { return saturate<Integer>(held); },
        [](const std::string& held) { return readInteger<Integer>(held); },
        [](const auto&) { return Integer{0}; },
    });
}

} // namespace

bool Value::isNumber() const {
    return as<bool>() || as<std::int64_t>() || as<std::uint64_t>() || as<double>();
}

const std::string& Value::text() const {
    static const std::string none;
    const auto* held = as<std::string>();
    return held ? *held : none;
}

const Class* Value::asClass() const {
    const auto* held = as<const Class*>();
    return held ? *held : nullptr;
}

bool Value::boolValue() const {
    return visit(Overloaded{
        [](bool held) { return held; },
        [](std::int64_t held) { return held != 0; },
        [](std::uint64_t held) { return held != 0; },
        [](double held) { return held != 0; },
        [](const std::string& held) { return readBool(held); },
        [](const auto&) { return false; },
    });
}

std::int32_t Value::intValue() const { return integerReading<std::int32_t>(*this); }

std::int64_t Value::longLongValue() const { return integerReading<std::int64_t>(*this); }

double Value::doubleValue() const {
    return visit(Overloaded{
        [](bool held) { return held ? 1.0 : 0.0; },
        [](std::int64_t held) { return static_cast<double>(held); },
        [](std::uint64_t held) { return static_cast<double>(held); },
        [](double held) { return held; },
        [](const std::string& held) { return readDouble(held); },
        [](const auto&) { return 0.0; },
    });
}

bool Value::isEqual(const Value& other) const {
    if (!isNumber() || !other.isNumber()) return *this == other;
    if (as<double>() || other.as<double>()) return doubleValue() == other.doubleValue();
    if (as<std::uint64_t>() || other.as<std::uint64_t>()) return *this == other;
    return longLongValue() == other.longLongValue();
}

const Value& valueForKey(const Dictionary& dictionary, std::string_view key) {
    static const Value nothing;
    const auto found = dictionary.find(key);
    return found == dictionary.end() ? nothing : found->second;
}

} // namespace prismo
