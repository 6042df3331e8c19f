#pragma once

#include "platform/plist/PropertyListReader.h"

#include <chrono>
#include <ctime>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace prismo {

inline std::optional<Dictionary> read(std::string_view bytes) {
    auto parsed = parseDictionary({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()}, "");
    return parsed ? std::optional(std::move(parsed).value()) : std::nullopt;
}

inline std::string repeated(const std::string& text, std::size_t times) {
    std::string result;
    result.reserve(text.size() * times);
    for (std::size_t i = 0; i < times; ++i)
        result += text;
    return result;
}

inline std::string plist(const std::string& content) {
    return "<plist version=\"1.0\">" + content + "</plist>";
}
inline std::string underKey(const std::string& xml) { return plist("<dict><key>k</key>" + xml + "</dict>"); }

inline std::string keys(std::size_t count, const std::function<std::string(std::size_t)>& name) {
    std::string result = "<dict>";
    for (std::size_t i = 0; i < count; ++i)
        result += "<key>" + name(i) + "</key><true/>";
    return result + "</dict>";
}

/// Two letters for each bit, chosen so that all such keys have the same hash in the library's table.
inline std::string collidingKey(std::size_t number) {
    std::string result;
    for (unsigned bit = 0; bit < 16; ++bit)
        result += (number >> bit & 1) != 0 ? "Ab" : "BA";
    return result;
}

/// A binary file of these objects, with the first one at the top. Offsets have four bytes, references two.
inline std::string binary(const std::vector<std::string>& objects) {
    const auto number = [](std::uint64_t value, unsigned size) {
        std::string result;
        while (size-- > 0)
            result += static_cast<char>(value >> (8 * size));
        return result;
    };
    std::string result = "bplist00";
    std::string table;
    for (const auto& object : objects) {
        table += number(result.size(), 4);
        result += object;
    }
    const auto tableAt = result.size();
    return result + table + std::string(6, '\0') + "\x04\x02" + number(objects.size(), 8) + number(0, 8) +
           number(tableAt, 8);
}

inline std::string reference(std::size_t index) {
    return {static_cast<char>(index >> 8), static_cast<char>(index & 0xFF)};
}
/// A dictionary with one entry, whose key is object 1.
inline std::string entry(std::size_t value) { return "\xD1" + reference(1) + reference(value); }
inline std::string array(const std::vector<std::size_t>& items) {
    std::string result = "\xAF\x12";
    for (unsigned shift = 32; shift > 0; shift -= 8)
        result += static_cast<char>(items.size() >> (shift - 8));
    for (const auto item : items)
        result += reference(item);
    return result;
}

/// A chain of lists, each of which contains the next one `width` times.
inline std::string sharedChain(std::size_t length, std::size_t width) {
    std::vector<std::string> objects{entry(2), "Qk"};
    for (std::size_t i = 0; i < length; ++i)
        objects.push_back(array(std::vector<std::size_t>(width, i + 3)));
    objects.emplace_back("\x09");
    return binary(objects);
}

/// A file that is made when it is needed.
struct MadeFile {
    std::string name;
    std::function<std::string()> make;
};
inline std::string nameOf(const testing::TestParamInfo<MadeFile>& info) { return info.param.name; }

// Sanitized code is slower with any file.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr std::chrono::milliseconds allowed{600};
#else
inline constexpr std::chrono::milliseconds allowed{200};
#endif

/// Processor time, so that other processes do not count. Nothing here waits.
template <typename Act>
std::chrono::nanoseconds time(Act act) {
    const auto now = [] {
        timespec result{};
        ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &result);
        return std::chrono::seconds(result.tv_sec) + std::chrono::nanoseconds(result.tv_nsec);
    };
    const auto start = now();
    act();
    return now() - start;
}

} // namespace prismo
