#pragma once

#include "platform/linux/files/DeviceRoot.h"

#include <optional>
#include <string_view>
#include <sys/stat.h>

namespace prismo {

/// How far the writing of a file got.
struct Writing {
    enum class Reached {
        /// The old content is still there.
        nothing,
        /// The file is partly overwritten.
        part,
        /// The file has the new bytes, but a power failure may undo that.
        file,
        disk,
    };
    Reached reached = Reached::nothing;
    /// Why it got no further.
    std::optional<Problem> problem;
    /// The status of the file, once it has the new bytes.
    struct stat status = {};
};

/// Writes the bytes to a new file, which gets the mode and owner of the old one, if any, and takes its place.
Writing replaceFile(const DeviceRoot::Place& place, const struct stat* old, std::string_view bytes);

/// Writes the bytes into the file itself, which is made if it is missing.
Writing overwriteFile(const DeviceRoot::Place& place, std::string_view bytes);

} // namespace prismo
