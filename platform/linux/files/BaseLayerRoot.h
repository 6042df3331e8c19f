#pragma once

#include "platform/linux/files/DeviceRoot.h"

namespace prismo {

/// The base layer, whose files have the device's own paths. Fails as missing if it is not installed.
Result<DeviceRoot> openBaseLayer();

} // namespace prismo
