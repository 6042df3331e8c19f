#include "platform/plist/KeyCosts.h"
#include "platform/plist/PropertyListGuard.h"
#include "platform/text/Number.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <optional>
#include <utility>
#include <vector>

namespace prismo {

namespace {

constexpr std::string_view white = " \t\r\n";

bool isWhite(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(white);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(white) - first + 1);
}

/// The name in a tag may have white space after it.
std::string_view withoutWhiteEnd(std::string_view text) {
    return text.substr(0, text.find_last_not_of(white) + 1);
}

bool isInteger(std::string_view text) {
    const auto number = trimmed(text);
    const bool negative = number.starts_with('-');
    const bool hasSign = negative || number.starts_with('+');
    // The library accepts a sign only as the first character.
    if (hasSign && text.front() != number.front()) return false;
    auto digits = number.substr(hasSign ? 1 : 0);
    const int base = digits.starts_with("0x") || digits.starts_with("0X") ? 16 : 10;
    if (base == 16)
        digits.remove_prefix(2);
    else if (digits.size() > 1 && digits.front() == '0')
        return false; // the library reads this as octal
    const auto value = numberFromText<std::uint64_t>(digits, base);
    constexpr std::uint64_t lowest = std::uint64_t{1} << 63;
    return value && (!negative || *value <= lowest);
}

bool isReal(std::string_view text) {
    text = trimmed(text);
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    // Every reader takes a number out of range as infinity or 0.
    return error != std::errc::invalid_argument && end == text.data() + text.size();
}

int number(std::string_view digits) { return numberFromText<int>(digits).value_or(0); }

bool isDate(std::string_view text) {
    const bool hasForm =
        std::ranges::equal(text, std::string_view("0000-00-00T00:00:00Z"), [](char c, char expected) {
            return expected == '0' ? c >= '0' && c <= '9' : c == expected;
        });
    if (!hasForm) return false;
    using namespace std::chrono;
    const auto part = [text](std::size_t at) { return static_cast<unsigned>(number(text.substr(at, 2))); };
    const year_month_day day(year(number(text.substr(0, 4))), month(part(5)), std::chrono::day(part(8)));
    return day.ok() && day.year() >= year(1) && part(11) < 24 && part(14) < 60 && part(17) < 60;
}

/// Groups of four characters, the last one padded.
bool isBase64(std::string_view text) {
    enum class Kind : std::uint8_t { other, digit, padding, space };
    constexpr auto kinds = [] {
        std::array<Kind, 256> table{};
        for (unsigned char c = 0; c < 128; ++c)
            if ((c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'))
                table[c] = Kind::digit;
        table['+'] = table['/'] = Kind::digit;
        table['='] = Kind::padding;
        for (const char c : white)
            table[static_cast<unsigned char>(c)] = Kind::space;
        return table;
    }();
    std::size_t digits = 0;
    std::size_t padding = 0;
    for (const char c : text) {
        const auto kind = kinds[static_cast<unsigned char>(c)];
        if (kind == Kind::other || (kind == Kind::digit && padding > 0)) return false;
        digits += kind == Kind::digit ? 1 : 0;
        padding += kind == Kind::padding ? 1 : 0;
    }
    return padding <= 2 && (digits + padding) % 4 == 0;
}

class XmlGuard {
  public:
    /// Entries of the dictionary at the top go to `entries`, unless it is null.
    XmlGuard(std::string_view text, std::vector<XmlEntry>* entries) : left_(text), entries_(entries) {}

    Verdict judge() {
        const bool isTooLong = left_.size() > maximumPropertyListSize;
        left_ = left_.substr(0, maximumPropertyListSize);
        if (isInOrder() && !isTooLong) return Verdict::safe;
        return (isBeyondLimits_ || isTooLong) && !isTooDeep_ ? Verdict::beyondLimits : Verdict::malformed;
    }

  private:
    bool isInOrder() {
        if (!skipMisc()) return false;
        if (left_.starts_with("<!DOCTYPE")) {
            const auto type = take(left_.find('>') + 1);
            if (type.empty() || type.find('[') != std::string_view::npos || !skipMisc()) return false;
        }
        if (!left_.starts_with("<plist")) return false;
        const auto start = take(left_.find('>') + 1);
        // No program writes attributes that contain ">".
        if (start.empty() || start.find('<', 1) != std::string_view::npos || start.ends_with("/>"))
            return false;
        return content() && skipMisc() && left_.empty();
    }

    bool within(std::size_t amount, std::size_t limit) {
        isBeyondLimits_ = amount > limit;
        return !isBeyondLimits_;
    }

    struct List {
        bool isDictionary;
        bool hasKey;
    };

    std::string_view take(std::size_t length) {
        const auto taken = left_.substr(0, length);
        left_.remove_prefix(taken.size());
        return taken;
    }

    bool skipPast(std::string_view end) {
        const auto at = left_.find(end);
        if (at == std::string_view::npos) return false;
        left_.remove_prefix(at + end.size());
        return within(++nodes_, maximumPropertyListNodes);
    }

    void skipWhite() {
        while (!left_.empty() && isWhite(left_.front()))
            left_.remove_prefix(1);
    }

    /// White space, comments and processing instructions.
    bool skipMisc() {
        for (;;) {
            skipWhite();
            if (left_.starts_with("<!--")) {
                if (!skipPast("-->")) return false;
            } else if (left_.starts_with("<?")) {
                if (!skipPast("?>")) return false;
            } else
                return true;
        }
    }

    /// Everything after `<plist>` up to and including `</plist>`: one value.
    bool content() {
        while (skipMisc()) {
            if (!left_.starts_with('<')) return false;
            const auto start = left_;
            const bool isAtTop = lists_.size() == 1;
            const auto tag = take(left_.find('>') + 1);
            if (tag.size() < 3) return false;
            const auto name = withoutWhiteEnd(tag.substr(1, tag.size() - 2));
            if (name == "/plist") return lists_.empty() && hasRoot_;
            if (!(name.starts_with('/') ? closeList(name.substr(1)) : element(name))) return false;
            if (isAtTop && name != "key") valueStart_ = start;
            if (entries_ && lists_.size() == 1 && lists_.front().isDictionary) noteEntry(name);
        }
        return false;
    }

    /// Called in the dictionary at the top, after an element with that name.
    void noteEntry(std::string_view name) {
        if (name == "key")
            entries_->push_back({key_, {}});
        else if (!entries_->empty())
            entries_->back().value = valueStart_.substr(0, valueStart_.size() - left_.size());
    }

    bool closeList(std::string_view name) {
        if (lists_.empty()) return false;
        const auto list = lists_.back();
        lists_.pop_back();
        if (name != (list.isDictionary ? "dict" : "array") || list.hasKey) return false;
        if (list.isDictionary) comparisons_ += keys_.close();
        return within(comparisons_, maximumKeyComparisons);
    }

    bool element(std::string_view name) {
        const bool isEmpty = name.ends_with('/');
        if (isEmpty) name = withoutWhiteEnd(name.substr(0, name.size() - 1));
        nodes_ += name == "date" ? nodesOfXmlDate : 1;
        if (!isExpected(name == "key") || !within(nodes_, maximumPropertyListNodes)) return false;
        if (name == "dict" || name == "array") return isEmpty || openList(name == "dict");
        if (isEmpty) return name == "string" || name == "data" || name == "true" || name == "false";
        if (name == "string" || name == "key") return text(name);
        const auto leaf = take(std::min(left_.find('<'), left_.size()));
        if (!endTag(name)) return false;
        if (name == "integer") return isInteger(leaf);
        if (name == "real") return isReal(leaf);
        if (name == "date") return isDate(leaf);
        if (name == "data") return isBase64(leaf);
        return (name == "true" || name == "false") && leaf.empty();
    }

    /// There is one root. In a dictionary, keys and values alternate.
    bool isExpected(bool isKey) {
        if (lists_.empty()) return !isKey && !std::exchange(hasRoot_, true);
        auto& list = lists_.back();
        if (isKey != (list.isDictionary && !list.hasKey)) return false;
        list.hasKey = isKey;
        return true;
    }

    bool openList(bool isDictionary) {
        lists_.push_back({isDictionary, false});
        isTooDeep_ = lists_.size() > maximumPropertyListDepth;
        if (isTooDeep_) return false;
        if (isDictionary) keys_.open();
        return true;
    }

    bool endTag(std::string_view name) {
        if (!left_.starts_with("</") || !left_.substr(2).starts_with(name)) return false;
        left_.remove_prefix(2 + name.size());
        skipWhite();
        if (!left_.starts_with('>')) return false;
        left_.remove_prefix(1);
        return true;
    }

    /// A text up to its end tag. The library moves the rest of the text for each reference that it replaces.
    bool text(std::string_view name) {
        const auto start = left_;
        bool isPlain = true;
        for (;;) {
            const auto at = left_.find('<');
            if (at == std::string_view::npos) return false;
            left_.remove_prefix(at);
            if (left_.starts_with("</")) break;
            isPlain = false;
            const bool isComment = left_.starts_with("<!--");
            if (!isComment && !left_.starts_with("<![CDATA[")) return false;
            if (!skipPast(isComment ? "-->" : "]]>")) return false;
        }
        const auto whole = start.substr(0, start.size() - left_.size());
        const auto references = static_cast<std::size_t>(std::ranges::count(whole, '&'));
        moved_ += references * whole.size();
        // A key with references, CDATA or comments counts as the worst case.
        if (name == "key") {
            key_ = isPlain && references == 0 ? whole : std::string_view();
            keys_.add(key_);
        }
        return within(moved_, maximumMovedBytes) && endTag(name);
    }

    std::string_view left_;
    std::vector<XmlEntry>* entries_;
    std::string_view key_;
    /// What was left at the start of the last value at the top.
    std::string_view valueStart_;
    std::vector<List> lists_;
    KeyCosts keys_;
    std::size_t nodes_ = 0;
    std::size_t comparisons_ = 0;
    std::size_t moved_ = 0;
    bool hasRoot_ = false;
    bool isBeyondLimits_ = false;
    bool isTooDeep_ = false;
};

} // namespace

Verdict judgeXml(std::string_view text, std::vector<XmlEntry>* entries) {
    // The library takes a NUL for the end of the file.
    if (text.size() <= maximumPropertyListSize && text.find('\0') != std::string_view::npos)
        return Verdict::malformed;
    return XmlGuard(text, entries).judge();
}

} // namespace prismo
