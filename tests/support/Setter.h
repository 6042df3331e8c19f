#pragma once

#include "platform/foundation/Observable.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace prismo {

/// A call of a setter, with a value that its object does not have yet.
struct Setter {
    std::string name;
    std::function<Subscription(std::function<void()>)> observe;
    std::function<void()> call;

    /// How many changes the object tells of while it is called.
    int changes() const {
        int count = 0;
        const auto subscription = observe([&] { ++count; });
        call();
        return count;
    }
};

template <typename Object>
Setter setter(std::string name, const std::shared_ptr<Object>& object,
              std::type_identity_t<std::function<void(Object&)>> call) {
    return {std::move(name),
            [object](std::function<void()> observer) { return object->observe(std::move(observer)); },
            [object, call = std::move(call)] { call(*object); }};
}
/// Of a new object.
template <typename Object>
Setter setter(std::string name, std::function<void(Object&)> call) {
    return setter(std::move(name), std::make_shared<Object>(), std::move(call));
}

inline void expectEachToTellOnce(const std::vector<Setter>& setters) {
    for (const auto& setter : setters) {
        EXPECT_EQ(setter.changes(), 1) << setter.name;
        EXPECT_EQ(setter.changes(), 0) << setter.name << ", to the value that is there";
    }
}

/// Of calls that change something whenever they are made.
inline void expectEachCallToTell(const std::vector<Setter>& setters) {
    for (const auto& setter : setters) {
        EXPECT_EQ(setter.changes(), 1) << setter.name;
        EXPECT_EQ(setter.changes(), 1) << setter.name << ", again";
    }
}

} // namespace prismo
