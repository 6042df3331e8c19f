#pragma once

#include "platform/foundation/Date.h"

#include <compare>
#include <concepts>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace prismo {

class Class;
class NSObject;
class Value;

using Array = std::vector<Value>;
/// Keys in byte order, which is also the order in which files are written.
using Dictionary = std::map<std::string, Value, std::less<>>;
using Data = std::vector<std::uint8_t>;

/// A keyed archive's reference. This system never makes one; it keeps those that it finds.
struct Uid {
    std::uint64_t index = 0;
    auto operator<=>(const Uid&) const = default;
};

/// What a row, a message or a settings file can hold, or nothing.
///
/// The first nine kinds are the property-list kinds; text is UTF-8. A class or an object may stand in a
/// row's properties and travel as an argument, but no file takes them. Copies are deep, except that an
/// object is shared.
class Value {
  public:
    Value() = default;
    Value(bool value) : storage_(value) {}
    template <std::integral Integer>
    requires(!std::same_as<Integer, bool>) Value(Integer value) : storage_(integer(value)) {}
    Value(std::floating_point auto value) : storage_(static_cast<double>(value)) {}
    Value(std::string text) : storage_(std::move(text)) {}
    Value(std::string_view text) : storage_(std::string(text)) {}
    Value(const char* text) : storage_(std::string(text)) {}
    Value(Date date) : storage_(date) {}
    Value(Data data) : storage_(std::move(data)) {}
    Value(Array array) : storage_(std::move(array)) {}
    Value(Dictionary dictionary) : storage_(std::move(dictionary)) {}
    Value(Uid uid) : storage_(uid) {}
    Value(const Class& objectClass) : storage_(&objectClass) {}
    /// An empty pointer is nothing.
    template <std::derived_from<NSObject> Object>
    Value(std::shared_ptr<Object> object) {
        if (object) storage_ = std::shared_ptr<NSObject>(std::move(object));
    }

    bool isNothing() const { return std::holds_alternative<std::monostate>(storage_); }
    /// Boolean, integer or real.
    bool isNumber() const;

    /// The content if it is of exactly that kind, else null. Integers above INT64_MAX are of the kind
    /// `std::uint64_t`, all others of the kind `std::int64_t`.
    template <typename Kind>
    const Kind* as() const {
        return std::get_if<Kind>(&storage_);
    }
    /// The text, or "" for every other kind.
    const std::string& text() const;
    /// The class, or null for every other kind.
    const Class* asClass() const;
    /// The object, or null where there is none or it is of another class.
    template <typename Object = NSObject>
    std::shared_ptr<Object> object() const {
        const auto* held = as<std::shared_ptr<NSObject>>();
        return held ? std::dynamic_pointer_cast<Object>(*held) : nullptr;
    }

    /// The platform's numeric readings. A number converts; a real loses its fraction and saturates; text is
    /// read from its start after white space ("12px" is 12, "x" is 0), and is true when it begins with one
    /// of Y, y, T, t or, after a sign and zeros, a digit from 1 to 9. Every other kind reads as false and 0.
    bool boolValue() const;
    /// Text saturates at the 32-bit limits; a wider integer keeps its low 32 bits.
    std::int32_t intValue() const;
    std::int64_t longLongValue() const;
    float floatValue() const { return static_cast<float>(doubleValue()); }
    double doubleValue() const;

    /// The same kind and the same content.
    bool operator==(const Value&) const = default;
    /// The platform's equality: numbers compare by value whatever their kind (true, 1 and 1.0 are equal).
    bool isEqual(const Value& other) const;

    template <typename Visitor>
    decltype(auto) visit(Visitor&& visitor) const {
        return std::visit(std::forward<Visitor>(visitor), storage_);
    }

  private:
    using Storage = std::variant<std::monostate, bool, std::int64_t, std::uint64_t, double, std::string, Date,
                                 Data, Array, Dictionary, Uid, const Class*, std::shared_ptr<NSObject>>;

    template <std::integral Integer>
    static Storage integer(Integer value) {
        if (std::in_range<std::int64_t>(value)) return static_cast<std::int64_t>(value);
        return static_cast<std::uint64_t>(value);
    }

    Storage storage_;
};

/// The value under `key`, or nothing.
const Value& valueForKey(const Dictionary& dictionary, std::string_view key);

} // namespace prismo
