#pragma once

#include "platform/foundation/Result.h"
#include "platform/foundation/Value.h"
#include "platform/local/descriptors/UniqueFd.h"

#include <cstddef>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/stat.h>

namespace prismo {

// A problem has the path that the caller gives for the file.

/// Flags for opening without waiting: neither for the writer of a FIFO nor for a terminal.
inline constexpr int atOnce = O_NONBLOCK | O_NOCTTY;

/// The status of an open file. The problem (unreadable) if it is not a regular file.
Result<struct stat> regularStatus(int descriptor, const std::string& path);

/// All bytes of a regular file, from the current position on. Fails if it has more than `limit`.
Result<Data> readAll(int descriptor, std::size_t limit, const std::string& path);
/// The same into `bytes`, whose memory is reused, for a caller that already has the status of the file. Of a
/// longer file it reads the first `limit` bytes and one more, and succeeds.
Result<> readStart(int descriptor, const struct stat& status, std::size_t limit, Data& bytes,
                   const std::string& path);

/// Writes all bytes, or fails (unwritable).
Result<> writeAll(int descriptor, std::string_view bytes, const std::string& path);

/// Brings the entries of the open directory to the disk, as far as its file system can do that. Fails as
/// `fsync` does: returns false with errno set.
bool syncDirectory(int directory);

} // namespace prismo
