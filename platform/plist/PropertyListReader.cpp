#include "platform/plist/PropertyListReader.h"

#include "platform/plist/PropertyListGuard.h"
#include "platform/text/Utf8.h"

#include <algorithm>
#include <array>
#include <bit>
#include <chrono>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <memory>
#include <optional>
#include <plist/plist.h>
#include <string>
#include <string_view>
#include <vector>

namespace prismo {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

struct FreeNode {
    void operator()(void* node) const { ::plist_free(node); }
};
struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};
using Node = std::unique_ptr<void, FreeNode>;
using Memory = std::unique_ptr<char, FreeMemory>;

/// Numbers in files have a decimal point, even if the host has set a locale with another separator.
class PointForDecimals {
  public:
    PointForDecimals() {
        if (std::string_view(std::localeconv()->decimal_point) == ".") return;
        locale_ = ::newlocale(LC_ALL_MASK, "C", nullptr);
        previous_ = ::uselocale(locale_);
    }
    ~PointForDecimals() {
        if (!locale_) return;
        ::uselocale(previous_);
        ::freelocale(locale_);
    }
    PointForDecimals(const PointForDecimals&) = delete;
    PointForDecimals& operator=(const PointForDecimals&) = delete;

  private:
    locale_t locale_ = nullptr;
    locale_t previous_ = nullptr;
};

/// The number as the library writes it in a binary file: a header of eight bytes, a marker, and eight bytes
/// in big-endian order.
std::uint64_t storedNumber(plist_t node) {
    char* bytes = nullptr;
    std::uint32_t size = 0;
    ::plist_to_bin(node, &bytes, &size);
    const Memory memory(bytes);
    std::uint64_t number = 0;
    for (std::uint32_t i = 9; i < std::min(size, 17U); ++i)
        number = number << 8 | static_cast<std::uint8_t>(bytes[i]);
    return number;
}

/// Is the integer negative, rather than too large for a signed one? Its highest bit is set.
bool isNegative(plist_t node, [[maybe_unused]] std::uint64_t value) {
#if PRISMO_PLIST_HAS_SIGNS
    return ::plist_int_val_is_negative(node) != 0;
#else
    // This version has no function that says so, but the nodes that it makes of such values are negative.
    const Node negative(::plist_new_uint(value));
    return ::plist_compare_node_value(node, negative.get()) != 0;
#endif
}

Value integer(plist_t node) {
    std::uint64_t value = 0;
    ::plist_get_uint_val(node, &value);
    const auto number = static_cast<std::int64_t>(value);
    return number >= 0 || isNegative(node, value) ? Value(number) : Value(value);
}

/// The date in the XML file that the library writes for the node. A binary file would take a table of 32 KiB
/// each time.
Date writtenDate(plist_t node) {
    char* bytes = nullptr;
    std::uint32_t size = 0;
    ::plist_to_xml(node, &bytes, &size);
    const Memory memory(bytes);
    const auto text = std::string_view(bytes, size);
    constexpr std::string_view tag = "<date>";
    const auto start = std::min(text.find(tag), text.size() - tag.size()) + tag.size();
    int year = 0;
    std::array<unsigned, 5> parts{};
    std::sscanf(bytes + start, "%d-%u-%uT%u:%u:%uZ", &year, parts.data(), &parts[1], &parts[2], &parts[3],
                &parts[4]);
    using namespace std::chrono;
    constexpr sys_days reference = std::chrono::year(2001) / January / 1;
    const sys_days day = std::chrono::year(year) / month(parts[0]) / std::chrono::day(parts[1]);
    const seconds time = hours(parts[2]) + minutes(parts[3]) + seconds(parts[4]);
    return Date{static_cast<double>((day - reference + time).count())};
}

/// Copies the library's values into ours.
class Copier {
  public:
    enum class Format { xml, binary };
    explicit Copier(Format format) : format_(format) {}

    /// Could the library reproduce everything in the file faithfully?
    bool isFaithful() const { return isFaithful_; }

    Dictionary dictionary(plist_t node) {
        Dictionary result;
        plist_dict_iter start = nullptr;
        ::plist_dict_new_iter(node, &start);
        const Memory iterator(static_cast<char*>(start));
        for (;;) {
            char* name = nullptr;
            plist_t child = nullptr;
            ::plist_dict_next_item(node, start, &name, &child);
            const Memory key(name);
            if (!child) return result;
            std::string text(checked(name));
            // A file that this system wrote has its keys in order.
            const auto place = result.empty() || std::prev(result.end())->first < text
                                   ? result.end()
                                   : result.lower_bound(text);
            result.insert_or_assign(place, std::move(text), value(child));
        }
    }

    /// The values under these keys, if there are any.
    Dictionary dictionary(plist_t node, std::span<const char* const> keys) {
        Dictionary result;
        for (const char* key : keys)
            if (plist_t child = ::plist_dict_get_item(node, key)) result.insert_or_assign(key, value(child));
        return result;
    }

  private:
    std::string_view checked(std::string_view text) {
        isFaithful_ = isFaithful_ && isPlainUtf8(text);
        return text;
    }

    Value value(plist_t node) {
        switch (::plist_get_node_type(node)) {
        case PLIST_BOOLEAN: {
            std::uint8_t held = 0;
            ::plist_get_bool_val(node, &held);
            return held != 0;
        }
        case PLIST_UINT:
            return integer(node);
        case PLIST_REAL: {
            double held = 0;
            ::plist_get_real_val(node, &held);
            return held;
        }
        case PLIST_STRING: {
            std::uint64_t size = 0;
            const char* text = ::plist_get_string_ptr(node, &size);
            return checked({text, static_cast<std::size_t>(size)});
        }
        case PLIST_DATE:
            return date(node);
        case PLIST_DATA: {
            std::uint64_t size = 0;
            const char* bytes = ::plist_get_data_ptr(node, &size);
            return Data(bytes, bytes + size);
        }
        case PLIST_ARRAY:
            return array(node);
        case PLIST_DICT:
            return dictionaryOrUid(node);
        case PLIST_UID: {
            Uid held;
            ::plist_get_uid_val(node, &held.index);
            return held;
        }
        default:
            isFaithful_ = false;
            return {};
        }
    }

    Date date(plist_t node) const {
        std::int32_t seconds = 0;
        std::int32_t microseconds = 0;
        ::plist_get_date_val(node, &seconds, &microseconds);
        // The getter has only 32 bits for the seconds, and drops anything below a microsecond.
        constexpr std::int32_t safe = std::numeric_limits<std::int32_t>::max() - 1;
        if (microseconds == 0 && seconds > -safe && seconds < safe) return {static_cast<double>(seconds)};
        if (format_ == Format::xml) return writtenDate(node);
        return {std::bit_cast<double>(storedNumber(node))};
    }

    Array array(plist_t node) {
        Array result;
        result.reserve(::plist_array_get_size(node));
        plist_array_iter start = nullptr;
        ::plist_array_new_iter(node, &start);
        const Memory iterator(static_cast<char*>(start));
        for (;;) {
            plist_t child = nullptr;
            ::plist_array_next_item(node, start, &child);
            if (!child) return result;
            result.push_back(value(child));
        }
    }

    Value dictionaryOrUid(plist_t node) {
        auto held = dictionary(node);
        if (format_ == Format::xml && held.size() == 1) {
            const auto* index = valueForKey(held, "CF$UID").as<std::int64_t>();
            if (index && *index >= 0) return Uid{static_cast<std::uint64_t>(*index)};
        }
        return held;
    }

    Format format_;
    bool isFaithful_ = true;
};

std::string_view textOf(std::span<const std::uint8_t> bytes) {
    std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
    return text;
}

bool isBinary(std::string_view text) { return text.starts_with("bplist"); }

/// Our copy of the dictionary in a safe file, or of the values of these keys.
std::optional<Dictionary> copied(std::string_view text, std::optional<std::span<const char* const>> keys) {
    const PointForDecimals point;
    plist_t read = nullptr;
    const auto size = static_cast<std::uint32_t>(text.size());
    if (isBinary(text))
        ::plist_from_bin(text.data(), size, &read);
    else
        ::plist_from_xml(text.data(), size, &read);
    const Node root(read);
    if (!root || ::plist_get_node_type(read) != PLIST_DICT) return {};
    Copier copier(isBinary(text) ? Copier::Format::binary : Copier::Format::xml);
    auto dictionary = keys ? copier.dictionary(read, *keys) : copier.dictionary(read);
    return copier.isFaithful() ? std::optional(std::move(dictionary)) : std::nullopt;
}

/// A file with only these of the entries. Returns nullopt if the keys as they are written do not show which
/// entries those are.
std::optional<std::string> withKeys(std::span<const char* const> keys, std::span<const XmlEntry> entries) {
    std::string text = "<plist><dict>";
    for (const auto& entry : entries) {
        if (entry.key.empty()) return {};
        if (std::ranges::find(keys, entry.key) != keys.end())
            text.append("<key>").append(entry.key).append("</key>").append(entry.value);
    }
    return text.append("</dict></plist>");
}

Result<Dictionary> parse(std::span<const std::uint8_t> bytes,
                         std::optional<std::span<const char* const>> keys, const std::string& path) {
    const auto text = textOf(bytes);
    std::vector<XmlEntry> entries;
    const auto verdict = isBinary(text) ? judgeBinary(bytes) : judgeXml(text, keys ? &entries : nullptr);
    if (verdict == Verdict::beyondLimits)
        return Problem{Problem::Kind::unreadable, path, "More than a property list may hold here"};
    std::optional<Dictionary> dictionary;
    if (verdict == Verdict::safe) {
        // The library compares each key with all before it, and makes three blocks of memory for each value.
        const auto shorter = keys && !isBinary(text) ? withKeys(*keys, entries) : std::nullopt;
        dictionary = copied(shorter ? std::string_view(*shorter) : text, keys);
    }
    if (!dictionary) return Problem{Problem::Kind::malformed, path, "No property-list dictionary"};
    return std::move(*dictionary);
}

} // namespace

Result<Dictionary> parseDictionary(std::span<const std::uint8_t> bytes, const std::string& path) {
    return parse(bytes, std::nullopt, path);
}

Result<Dictionary> parseDictionary(std::span<const std::uint8_t> bytes, std::span<const char* const> keys,
                                   const std::string& path) {
    return parse(bytes, keys, path);
}

} // namespace prismo
