#pragma once

#include "platform/foundation/NSObject.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace prismo {

/// Notifications within this process, delivered at once to the observers in the order of their registration.
/// Observers are not kept alive, and a released one is never called.
class NSNotificationCenter {
  public:
    /// Sends `selector`, with the notification's sender as argument, to `observer` for every notification of
    /// that name that is posted from now on; only for those of `object`, where one is given.
    void addObserver(const std::shared_ptr<NSObject>& observer, std::string selector, std::string name,
                     const std::shared_ptr<NSObject>& object = nullptr);
    void postNotification(std::string_view name, const std::shared_ptr<NSObject>& object = nullptr);

  private:
    struct Observer {
        Message message;
        std::string name;
        std::weak_ptr<NSObject> object;
        bool anyObject;
    };
    std::vector<Observer> observers_;
};

} // namespace prismo
