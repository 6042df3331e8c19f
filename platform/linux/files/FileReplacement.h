#pragma once

#include "platform/linux/files/DeviceRoot.h"

#include <string_view>
#include <sys/stat.h>

namespace prismo {

/// How far the writing of a file got.
struct Writing {
    enum class Reached {
        /// What was there before is there still.
        nothing,
        /// The file is written over in part.
        part,
        /// It holds the new bytes, and a power cut may take them back.
        file,
        disk,
    };
    Reached reached = Reached::nothing;
    /// Why it got no further.
    int error = 0;
    /// The file's, once it holds the new bytes.
    struct stat status {};
};

/// Puts the bytes into a new file in the place of the old one, if any, whose mode and owner it gets.
Writing replaceFile(const DeviceRoot::Place& place, const struct stat* old, std::string_view bytes);

/// Puts the bytes into the file itself, which is made where it is missing.
Writing overwriteFile(const DeviceRoot::Place& place, std::string_view bytes);

} // namespace prismo
