#include "platform/foundation/NSNotificationCenter.h"

#include "platform/foundation/Trace.h"

#include <algorithm>

namespace prismo {

void NSNotificationCenter::addObserver(const std::shared_ptr<NSObject>& observer, std::string selector,
                                       std::string name, const std::shared_ptr<NSObject>& object) {
    // Clean up here: short-lived objects, such as cells, observe names that may never be posted.
    std::erase_if(observers_, [](const Observer& known) { return known.message.target.expired(); });
    observers_.push_back({{observer, std::move(selector)}, std::move(name), object, object == nullptr});
}

void NSNotificationCenter::postNotification(std::string_view name, const std::shared_ptr<NSObject>& object) {
    const Trace::Step step(
        "notification", [&] { return Trace::text(name); }, "NSNotificationCenter");
    // Iterate over a copy: an observer may register another one.
    for (const auto& observer : std::vector(observers_)) {
        if (observer.name != name) continue;
        // A released object sends nothing, and does not count as "no object".
        if (!observer.anyObject && (!object || observer.object.lock() != object)) continue;
        if (const auto target = observer.message.target.lock())
            target->performSelector(observer.message.selector, {object}, "NSNotificationCenter");
    }
}

} // namespace prismo
