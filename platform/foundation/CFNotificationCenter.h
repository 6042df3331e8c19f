#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace prismo {

class Device;
class NSObject;

/// What happens to a notification that arrives while the center is suspended. The platform defines the
/// numbers.
enum class SuspensionBehavior {
    drop = 1,
    /// On resumption, one delivery, however many arrived.
    coalesce = 2,
    /// On resumption, all of them, in order.
    hold = 3,
    deliverImmediately = 4,
};

/// Notifications between processes, by name only: no object and no user information arrives. A post reaches
/// every observer on the device, including those of the posting process, on a later turn of its run loop and
/// in order of registration. The center does not keep observers alive and never calls a released one.
class CFNotificationCenter {
  public:
    /// Called with the observer that was registered with it.
    using Callback = void (*)(const std::shared_ptr<NSObject>& observer);

    explicit CFNotificationCenter(Device& device) : device_(device) {}

    /// Adds a registration, even if the observer already has one for that name.
    void addObserver(const std::shared_ptr<NSObject>& observer, Callback callback, std::string name,
                     SuspensionBehavior suspensionBehavior);
    /// `object` is what the notification is about. It appears only in the device's effects.
    void postNotification(const std::string& name, std::string_view object = {});

    /// Called by the device, from the run loop: `name` was posted at least once since the last call.
    void deliver(std::string_view name);

    /// A process that must not be disturbed suspends its center. On resumption each observer gets what its
    /// suspension behavior has kept.
    void setSuspended(bool suspended);

  private:
    struct Observer {
        std::weak_ptr<NSObject> object;
        Callback callback;
        std::string name;
        SuspensionBehavior suspensionBehavior;
        std::size_t kept = 0;
    };
    static void notify(const Observer& observer);

    Device& device_;
    bool suspended_ = false;
    std::vector<Observer> observers_;
};

/// The center of the current device.
CFNotificationCenter& CFNotificationCenterGetDarwinNotifyCenter();

} // namespace prismo
