#pragma once

#include "platform/foundation/Value.h"

#include <concepts>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace prismo {

/// A method that can be called by its selector, for rows, controls, timers and notifications.
struct Method {
    /// The full text, one colon for each argument: "setPreferenceValue:specifier:".
    std::string selector;
    std::function<Value(NSObject&, std::span<const Value>)> invoke;
};

/// What is known of a class at run time. One object stands for each class and lives as long as the program.
class Class {
  public:
    using Factory = std::function<std::shared_ptr<NSObject>()>;

    /// `create` makes a new object, not yet initialised; it is empty for a class that nobody makes by name.
    Class(std::string name, const Class* superclass, Factory create, std::vector<Method> methods = {});

    const std::string& name() const { return name_; }
    const Class* superclass() const { return superclass_; }
    bool isSubclassOf(const Class& other) const;
    /// The method of this class or of the nearest class above it, or null.
    const Method* method(std::string_view selector) const;
    std::shared_ptr<NSObject> create() const { return create_ ? create_() : nullptr; }

  private:
    std::string name_;
    const Class* superclass_;
    Factory create_;
    std::vector<Method> methods_;
};

/// Does the system's class have that method for its instances?
bool instancesRespondToSelector(const Class& objectClass, std::string_view selector);
/// An older system, whose framework classes lack these methods; an empty list for the newest one.
void setMethodsLackingOnThisSystem(std::vector<std::string> selectors);

/// Makes a class known by its name. A later class of the same name takes the earlier one's place.
void registerClass(const Class& objectClass);
/// The registered class of that name, or null.
const Class* NSClassFromString(std::string_view name);

namespace detail {

template <typename T>
struct PointedTo;
template <typename T>
struct PointedTo<std::shared_ptr<T>> {
    using Type = T;
};

template <typename Parameter>
decltype(auto) argument(const Value& value) {
    using Plain = std::remove_cvref_t<Parameter>;
    if constexpr (std::same_as<Plain, Value>) {
        return (value);
    } else if constexpr (std::same_as<Plain, bool>) {
        return value.boolValue();
    } else {
        return value.object<typename PointedTo<Plain>::Type>();
    }
}

template <typename Receiver, typename Result, typename... Parameters>
struct Invoker {
    template <auto Function, std::size_t... Index>
    static Value call(NSObject& object, std::span<const Value> arguments, std::index_sequence<Index...>) {
        static const Value nothing;
        auto& receiver = dynamic_cast<Receiver&>(object);
        const auto at = [&](std::size_t i) -> const Value& {
            return i < arguments.size() ? arguments[i] : nothing;
        };
        if constexpr (std::is_void_v<Result>) {
            (receiver.*Function)(argument<Parameters>(at(Index))...);
            return {};
        } else {
            return Value((receiver.*Function)(argument<Parameters>(at(Index))...));
        }
    }
    template <auto Function>
    static Value invoke(NSObject& object, std::span<const Value> arguments) {
        return call<Function>(object, arguments, std::index_sequence_for<Parameters...>{});
    }
};

template <typename Function>
struct InvokerOf;
template <typename Receiver, typename Result, typename... Parameters>
struct InvokerOf<Result (Receiver::*)(Parameters...)> : Invoker<Receiver, Result, Parameters...> {};
template <typename Receiver, typename Result, typename... Parameters>
struct InvokerOf<Result (Receiver::*)(Parameters...) const> : Invoker<Receiver, Result, Parameters...> {};

} // namespace detail

/// The table entry of a member function: `method<&Page::respring>("respring:")`. Its parameters are values,
/// booleans or shared pointers to framework objects (empty where the argument is no such object).
template <auto Function>
Method method(std::string selector) {
    return {std::move(selector), &detail::InvokerOf<decltype(Function)>::template invoke<Function>};
}

} // namespace prismo
