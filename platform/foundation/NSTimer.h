#pragma once

#include "platform/foundation/RunLoop.h"

#include <memory>
#include <string>

namespace prismo {

class NSObject;

/// Sends `selector` to `target` once, `interval` from now, on the current device's run loop. Keeps the target
/// alive until then, and cannot be canceled.
void scheduleTimer(Seconds interval, std::shared_ptr<NSObject> target, std::string selector);

} // namespace prismo
