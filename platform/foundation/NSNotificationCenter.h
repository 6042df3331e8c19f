#pragma once

#include "platform/foundation/NSObject.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace prismo {

/// Notifications within this process, delivered immediately to the observers in order of registration. The
/// center does not keep observers alive and never calls a released one.
class NSNotificationCenter {
  public:
    /// From now on sends `selector` to `observer`, with the notification's sender as argument, for every
    /// notification with that name. If `object` is given, only for notifications of that object.
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
