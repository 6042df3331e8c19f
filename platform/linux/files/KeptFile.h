#pragma once

#include "platform/foundation/Device.h"

#include <optional>
#include <string>
#include <sys/stat.h>

namespace prismo {

/// Keeps a file's bytes beside it, under a name that is new: the file's, ".malformed-", and the time. Another
/// link to them where the file is to be replaced and the file system allows it, else a copy. The new name, or
/// nothing, with errno set, where the bytes could not be kept. They are on the disk.
std::optional<std::string> keepBeside(int directory, const std::string& name, int file,
                                      const struct stat& status, WriteMode mode);

} // namespace prismo
