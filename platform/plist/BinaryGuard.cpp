#include "platform/plist/PropertyListGuard.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <optional>
#include <utility>
#include <vector>

namespace prismo {

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::size_t headerSize = 8;
constexpr std::size_t trailerSize = 32;

std::uint64_t bigEndian(Bytes bytes) {
    std::uint64_t value = 0;
    for (const auto byte : bytes)
        value = value << 8 | byte;
    return value;
}

bool isPlainAscii(Bytes text) {
    return std::ranges::all_of(text, [](std::uint8_t byte) { return byte != 0 && byte < 0x80; });
}

bool isPlainUtf16(Bytes text) {
    bool needsLow = false;
    for (std::size_t i = 0; i < text.size(); i += 2) {
        const auto unit = bigEndian(text.subspan(i, 2));
        const bool isLow = unit >= 0xDC00 && unit < 0xE000;
        if (unit == 0 || isLow != needsLow) return false;
        needsLow = unit >= 0xD800 && unit < 0xDC00;
    }
    return !needsLow;
}

enum class Kind : std::uint8_t { list, dictionary, text, other };

/// An object after everything below it has been copied to each place that refers to it.
struct Expanded {
    Kind kind = Kind::other;
    std::uint16_t depth = 0;
    std::uint32_t nodes = 1;
    std::uint32_t bytes = 0;

    void add(const Expanded& child) {
        nodes += child.nodes;
        bytes += child.bytes;
        depth = std::max(depth, static_cast<std::uint16_t>(child.depth + 1));
    }
    bool isWithinLimits() const { return nodes <= maximumPropertyListNodes && bytes <= maximumExpandedBytes; }
};

class BinaryGuard {
  public:
    explicit BinaryGuard(Bytes bytes) : bytes_(bytes) {}

    Verdict judge() {
        if (isInOrder()) return Verdict::safe;
        return isBeyondLimits_ ? Verdict::beyondLimits : Verdict::malformed;
    }

  private:
    bool isInOrder() {
        if (bytes_.size() < headerSize + trailerSize ||
            std::memcmp(bytes_.data(), "bplist00", headerSize) != 0 ||
            !within(bytes_.size() <= maximumPropertyListSize))
            return false;
        const auto trailer = bytes_.last(trailerSize);
        offsetSize_ = trailer[6];
        referenceSize_ = trailer[7];
        count_ = bigEndian(trailer.subspan(8, 8));
        const auto top = bigEndian(trailer.subspan(16, 8));
        const auto table = bigEndian(trailer.subspan(24, 8));
        const auto end = bytes_.size() - trailerSize;
        if (offsetSize_ < 1 || offsetSize_ > 8 || referenceSize_ < 1 || referenceSize_ > 8 || count_ == 0 ||
            table < headerSize || table > end || count_ > (end - table) / offsetSize_ ||
            !within(count_ <= maximumPropertyListNodes))
            return false;
        objects_ = bytes_.first(static_cast<std::size_t>(table));
        offsets_ = bytes_.subspan(objects_.size(), static_cast<std::size_t>(count_) * offsetSize_);
        seen_.resize(static_cast<std::size_t>(count_));
        return object(top, 0) != nullptr;
    }

    bool within(bool isWithin) {
        isBeyondLimits_ = !isWithin;
        return isWithin;
    }

    enum class State { unseen, open, done };
    struct Seen {
        State state = State::unseen;
        Expanded expanded;
    };

    /// Null if it is not safe. `depth` is the number of lists above it, and bounds the recursion.
    const Expanded* object(std::uint64_t index, std::size_t depth) {
        if (index >= count_ || depth > maximumPropertyListDepth) return nullptr;
        auto& seen = seen_[static_cast<std::size_t>(index)];
        // An object that is still open contains itself.
        if (seen.state != State::unseen) return seen.state == State::done ? &seen.expanded : nullptr;
        seen.state = State::open;
        const auto expanded = examine(index, depth);
        if (!expanded || !within(expanded->isWithinLimits())) return nullptr;
        seen = {State::done, *expanded};
        return &seen.expanded;
    }

    std::optional<Expanded> examine(std::uint64_t index, std::size_t depth) {
        const auto offset =
            bigEndian(offsets_.subspan(static_cast<std::size_t>(index) * offsetSize_, offsetSize_));
        if (offset < headerSize || offset >= objects_.size()) return {};
        left_ = objects_.subspan(static_cast<std::size_t>(offset) + 1);
        const auto marker = objects_[static_cast<std::size_t>(offset)];
        const auto low = static_cast<unsigned>(marker & 0x0F);
        switch (marker >> 4) {
        case 0x0:
            return marker == 0x08 || marker == 0x09 ? std::optional(Expanded{}) : std::nullopt;
        case 0x1:
            return integer(low);
        case 0x2:
            return low == 2 || low == 3 ? sized(std::size_t{1} << low) : std::nullopt;
        case 0x3:
            return low == 3 ? date() : std::nullopt;
        case 0x4:
            return content(low, 1, Kind::other);
        case 0x5:
            return content(low, 1, Kind::text);
        case 0x6:
            return content(low, 2, Kind::text);
        case 0x8:
            return sized(low + 1);
        case 0xA:
            return list(low, Kind::list, depth);
        case 0xD:
            return list(low, Kind::dictionary, depth);
        default:
            return {};
        }
    }

    std::optional<Expanded> sized(std::size_t size) const {
        return size <= left_.size() ? std::optional(Expanded{}) : std::nullopt;
    }

    std::optional<Expanded> date() const {
        if (left_.size() < 8) return {};
        const auto seconds = std::bit_cast<double>(bigEndian(left_.first(8)));
        const bool isPlain = std::abs(seconds) < 0x1p31 && seconds == std::trunc(seconds);
        return Expanded{.nodes = isPlain ? 1 : nodesOfFarBinaryDate};
    }

    std::optional<Expanded> integer(unsigned power) const {
        const auto size = std::size_t{1} << power;
        if (power > 4 || size > left_.size()) return {};
        // Of sixteen bytes, the library reads only the low eight, and no sign.
        if (power == 4 && bigEndian(left_.first(8)) != 0) return {};
        return Expanded{};
    }

    /// The number of elements, from the marker or from an integer after it.
    std::optional<std::size_t> elements(unsigned low) {
        if (low < 0x0F) return low;
        if (left_.empty() || (left_[0] & 0xF0) != 0x10 || (left_[0] & 0x0F) > 3) return {};
        const auto size = std::size_t{1} << (left_[0] & 0x0F);
        if (left_.size() <= size) return {};
        const auto count = bigEndian(left_.subspan(1, size));
        left_ = left_.subspan(1 + size);
        return count <= left_.size() ? std::optional(static_cast<std::size_t>(count)) : std::nullopt;
    }

    std::optional<Expanded> content(unsigned low, std::size_t width, Kind kind) {
        const auto count = elements(low);
        if (!count || *count > left_.size() / width) return {};
        const auto text = left_.first(*count * width);
        Expanded result{.kind = kind, .bytes = static_cast<std::uint32_t>(text.size())};
        // Texts may overlap, and the expanded file has each of them.
        textBytes_ += result.bytes;
        if (!within(textBytes_ <= maximumExpandedBytes)) return {};
        if (kind == Kind::text && !(width == 1 ? isPlainAscii(text) : isPlainUtf16(text))) return {};
        return result;
    }

    std::optional<Expanded> list(unsigned low, Kind kind, std::size_t depth) {
        const auto count = elements(low);
        const std::size_t perElement = kind == Kind::dictionary ? 2 : 1;
        if (!count || *count > left_.size() / perElement / referenceSize_) return {};
        const auto table = left_.first(*count * perElement * referenceSize_);
        // Lists may overlap, but each reference is a node in the expanded file.
        references_ += *count * perElement;
        if (!within(references_ <= maximumPropertyListNodes)) return {};
        Expanded result{.kind = kind, .depth = 1};
        for (std::size_t i = 0; i < *count * perElement; ++i) {
            const auto* child =
                object(bigEndian(table.subspan(i * referenceSize_, referenceSize_)), depth + 1);
            if (!child) return {};
            result.add(*child);
            const bool isKey = kind == Kind::dictionary && i < *count;
            if ((isKey && child->kind != Kind::text) || result.depth > maximumPropertyListDepth) return {};
            if (!within(result.isWithinLimits())) return {};
        }
        return result;
    }

    Bytes bytes_;
    Bytes objects_;
    Bytes offsets_;
    Bytes left_;
    std::size_t offsetSize_ = 0;
    std::size_t referenceSize_ = 0;
    std::uint64_t count_ = 0;
    std::size_t references_ = 0;
    std::size_t textBytes_ = 0;
    bool isBeyondLimits_ = false;
    std::vector<Seen> seen_;
};

} // namespace

Verdict judgeBinary(std::span<const std::uint8_t> bytes) { return BinaryGuard(bytes).judge(); }

} // namespace prismo
