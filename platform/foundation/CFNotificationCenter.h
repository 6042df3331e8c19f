#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace prismo {

class Device;
class NSObject;

/// What becomes of a notification that arrives while the centre is suspended. The numbers are the platform's.
enum class SuspensionBehavior {
    drop = 1,
    /// One delivery on resumption, however many arrived.
    coalesce = 2,
    /// Every one, in order, on resumption.
    hold = 3,
    deliverImmediately = 4,
};

/// Notifications between processes, by name alone: no object and no user information arrives. A post reaches
/// every observer on the device, also those of the posting process, on a later turn of its run loop and in
/// the order of registration. Observers are not kept alive, and a released one is never called.
class CFNotificationCenter {
  public:
    /// Receives the observer that was registered with it.
    using Callback = void (*)(const std::shared_ptr<NSObject>& observer);

    explicit CFNotificationCenter(Device& device) : device_(device) {}

    /// One registration more, also where the observer has one for that name already.
    void addObserver(const std::shared_ptr<NSObject>& observer, Callback callback, std::string name,
                     SuspensionBehavior suspensionBehavior);
    /// `object` is what the poster speaks of; it is seen in the device's effects and nowhere else.
    void postNotification(const std::string& name, std::string_view object = {});

    /// Called by the device, from the run loop: `name` was posted at least once since the last call.
    void deliver(std::string_view name);

    /// A process that is not to be disturbed suspends its centre; on resumption each observer gets what its
    /// suspension behaviour has kept.
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

/// The centre of the current device.
CFNotificationCenter& CFNotificationCenterGetDarwinNotifyCenter();

} // namespace prismo
