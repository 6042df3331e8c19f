#include "platform/foundation/NSTimer.h"

#include "platform/foundation/Device.h"
#include "platform/foundation/NSObject.h"

#include <utility>

namespace prismo {

void scheduleTimer(Seconds interval, std::shared_ptr<NSObject> target, std::string selector) {
    Device::current().runLoop().schedule(interval,
                                         [target = std::move(target), selector = std::move(selector)] {
                                             target->performSelector(selector, {}, "timer");
                                         });
}

} // namespace prismo
