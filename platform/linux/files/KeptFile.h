#pragma once

#include "platform/foundation/Device.h"
#include "platform/linux/files/DeviceRoot.h"

#include <string>
#include <sys/stat.h>

namespace prismo {

/// Keeps the bytes of the open file at `place` next to it, under a new name: the file's name, ".malformed-"
/// and the time. Makes another link if the file will be replaced and the file system allows links, else a
/// copy. Returns the new name; the bytes are on the disk.
Result<std::string> keepNextTo(const DeviceRoot::Place& place, int file, const struct stat& status,
                               WriteMode mode);

} // namespace prismo
