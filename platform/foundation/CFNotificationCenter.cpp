#include "platform/foundation/CFNotificationCenter.h"

#include "platform/foundation/Device.h"
#include "platform/foundation/NSObject.h"
#include "platform/foundation/Trace.h"

#include <utility>

namespace prismo {

void CFNotificationCenter::addObserver(const std::shared_ptr<NSObject>& observer, Callback callback,
                                       std::string name, SuspensionBehavior suspensionBehavior) {
    device_.observeNotification(name);
    // Clean up here: short-lived pages observe names that may never be posted.
    std::erase_if(observers_, [](const Observer& known) { return known.object.expired(); });
    observers_.push_back({observer, callback, std::move(name), suspensionBehavior});
}

void CFNotificationCenter::postNotification(const std::string& name, std::string_view object) {
    device_.postNotification(name, object);
}

void CFNotificationCenter::deliver(std::string_view name) {
    std::vector<Observer> due;
    for (auto& observer : observers_) {
        if (observer.name != name) continue;
        if (!suspended_ || observer.suspensionBehavior == SuspensionBehavior::deliverImmediately)
            due.push_back(observer);
        else if (observer.suspensionBehavior == SuspensionBehavior::coalesce)
            observer.kept = 1;
        else if (observer.suspensionBehavior == SuspensionBehavior::hold)
            ++observer.kept;
    }
    for (const auto& observer : due)
        notify(observer);
}

void CFNotificationCenter::setSuspended(bool suspended) {
    suspended_ = suspended;
    if (suspended) return;
    std::vector<Observer> due;
    for (auto& observer : observers_)
        if (const auto kept = std::exchange(observer.kept, 0); kept > 0)
            due.insert(due.end(), kept, observer);
    for (const auto& observer : due)
        notify(observer);
}

void CFNotificationCenter::notify(const Observer& observer) {
    const auto object = observer.object.lock();
    if (!object) return;
    const Trace::Step step(
        "notification", [&] { return Trace::text(observer.name) + " to " + object->description(); },
        "CFNotificationCenter");
    observer.callback(object);
}

CFNotificationCenter& CFNotificationCenterGetDarwinNotifyCenter() { return Device::current().systemCenter(); }

} // namespace prismo
