#pragma once

#include <string>

namespace prismo {

/// The directory of this machine that holds, under the device's own paths, the read-only files which the
/// product ships for every device. It goes with the running program, installed or in its build tree; it may
/// be missing. "" where it cannot be told.
std::string baseLayerDirectory();

} // namespace prismo
