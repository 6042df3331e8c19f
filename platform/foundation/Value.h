#pragma once

#include "platform/foundation/Date.h"

#include <compare>
#include <concepts>
#include <cstddef>
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

/// A reference inside a keyed archive. This system never makes one, but keeps those that it finds.
struct Uid {
    std::uint64_t index = 0;
    auto operator<=>(const Uid&) const = default;
};

template <typename Type>
concept IntegerNotBool = std::integral<Type> && !std::same_as<Type, bool>;

/// What a row, a message or a settings file can hold. An empty `Value` is called nothing; it stands for nil.
///
/// A boolean, integer, real, text, date, data, array, dictionary and UID can stand in a property list; text
/// is UTF-8. A class or an object can be a property of a row or an argument of a message, but no file holds
/// one. Copies are deep, except that an object is shared.
class Value {
  public:
    Value() = default;
    /// Exactly bool, so that no pointer becomes `true`.
    template <std::same_as<bool> Boolean>
    Value(Boolean value) : storage_(value) {}
    template <IntegerNotBool Integer>
    Value(Integer value) : storage_(integer(value)) {}
    template <std::floating_point Real>
    Value(Real value) : storage_(static_cast<double>(value)) {}
    Value(std::string text) : storage_(std::move(text)) {}
    Value(std::string_view text) : storage_(std::string(text)) {}
    Value(const char* text) : storage_(std::string(text)) {}
    Value(std::nullptr_t) = delete;
    Value(Date date) : storage_(date) {}
    Value(Data data) : storage_(std::move(data)) {}
    Value(Array array) : storage_(std::move(array)) {}
    Value(Dictionary dictionary) : storage_(std::move(dictionary)) {}
    Value(Uid uid) : storage_(uid) {}
    Value(const Class& objectClass) : storage_(&objectClass) {}
    /// A null pointer makes nothing.
    template <std::derived_from<NSObject> Object>
    Value(std::shared_ptr<Object> object) {
        if (object) storage_ = std::shared_ptr<NSObject>(std::move(object));
    }

    bool isNothing() const { return std::holds_alternative<std::monostate>(storage_); }
    /// Boolean, integer or real.
    bool isNumber() const;

    /// The content if it is of exactly that kind, else null. Integers above INT64_MAX have the kind
    /// `std::uint64_t`, all others `std::int64_t`.
    template <typename Kind>
    const Kind* as() const {
        return std::get_if<Kind>(&storage_);
    }
    /// The text, or "" for any other kind.
    const std::string& text() const;
    /// The class, or null for any other kind.
    const Class* asClass() const;
    /// The object, or null if there is none or it is of another class.
    template <typename Object = NSObject>
    std::shared_ptr<Object> object() const {
        const auto* held = as<std::shared_ptr<NSObject>>();
        return held ? std::dynamic_pointer_cast<Object>(*held) : nullptr;
    }

    /// The platform's numeric conversions. A number converts; a real loses its fraction and saturates. Text
    /// is read from its start, after white space ("12px" is 12, "x" is 0). It is true if it starts with one
    /// of Y, y, T, t or, after a sign and zeros, a digit from 1 to 9. Any other kind is false and 0.
    bool boolValue() const;
    /// Text saturates at the 32-bit limits; a wider integer keeps its low 32 bits.
    std::int32_t intValue() const;
    std::int64_t longLongValue() const;
    float floatValue() const { return static_cast<float>(doubleValue()); }
    double doubleValue() const;

    /// The same kind and the same content.
    bool operator==(const Value&) const = default;
    /// The platform's equality: numbers of any kinds compare by value (true, 1 and 1.0 are equal).
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
