#pragma once

#include "platform/foundation/Observable.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace prismo {

/// A call to a setter with a value different from the object's current one.
struct Setter {
    std::string name;
    std::function<Subscription(std::function<void()>)> observe;
    std::function<void()> call;

    /// How many changes the object reports during the call.
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
/// A setter of a new object.
template <typename Object>
Setter setter(std::string name, std::function<void(Object&)> call) {
    return setter(std::move(name), std::make_shared<Object>(), std::move(call));
}

inline void expectEachToReportOnce(const std::vector<Setter>& setters) {
    for (const auto& setter : setters) {
        EXPECT_EQ(setter.changes(), 1) << setter.name;
        EXPECT_EQ(setter.changes(), 0) << setter.name << ", set to its current value";
    }
}

/// For calls that change something every time.
inline void expectEachCallToReport(const std::vector<Setter>& setters) {
    for (const auto& setter : setters) {
        EXPECT_EQ(setter.changes(), 1) << setter.name;
        EXPECT_EQ(setter.changes(), 1) << setter.name << ", again";
    }
}

} // namespace prismo
