#pragma once

#include "platform/foundation/Result.h"

#include <string>

namespace prismo {

/// The directory of this machine that has the read-only files which the product ships for every device, under
/// the device's own paths. It belongs to the running program, whether that is installed or in its build tree.
/// It may not exist. Fails if the running program is unknown.
Result<std::string> baseLayerDirectory();

} // namespace prismo
