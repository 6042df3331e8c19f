#pragma once

#include "platform/foundation/NSObject.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace prismo {

/// Records the senders of the messages "first:" and "second:", in order.
struct Recorder : NSObject {
    using Received = std::pair<std::string, std::shared_ptr<NSObject>>;

    static const Class& classObject() {
        static const Class objectClass(
            "Recorder", &NSObject::classObject(), nullptr,
            {method<&Recorder::first>("first:"), method<&Recorder::second>("second:")});
        return objectClass;
    }
    const Class& isa() const override { return classObject(); }
    void first(const std::shared_ptr<NSObject>& sender) { record("first", sender); }
    void second(const std::shared_ptr<NSObject>& sender) { record("second", sender); }

    std::vector<Received> received;
    /// Called for each message.
    std::function<void()> onMessage;

  private:
    void record(const char* name, const std::shared_ptr<NSObject>& sender) {
        received.emplace_back(name, sender);
        if (onMessage) onMessage();
    }
};

} // namespace prismo
