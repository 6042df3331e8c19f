#pragma once

#include "platform/foundation/Value.h"
#include "platform/local/descriptors/UniqueFd.h"

#include <cstddef>
#include <fcntl.h>
#include <optional>
#include <string>
#include <string_view>
#include <sys/stat.h>

namespace prismo {

/// To open with: a FIFO without a writer and a terminal are not waited for.
inline constexpr int atOnce = O_NONBLOCK | O_NOCTTY;

/// Why what was opened is no file to read or to replace, in words; "" where it is a regular one.
std::string notRegular(const struct stat& status);

/// All bytes of a regular file, from where it stands. Nothing, with errno set, where reading failed; EFBIG
/// where it has more than `limit`.
std::optional<Data> readAll(int descriptor, std::size_t limit);
/// The same into `bytes`, whose memory is used again, where the caller has asked for the file's status.
/// False, with errno set, where it failed; with EFBIG it holds the first `limit` bytes and one more.
bool readAll(int descriptor, const struct stat& status, std::size_t limit, Data& bytes);

/// False, with errno set, where not all of it could be written.
bool writeAll(int descriptor, std::string_view bytes);

/// Brings the open directory's entries to the disk, as far as its file system does that. False, with errno
/// set, where it failed.
bool syncDirectory(int directory);

} // namespace prismo
