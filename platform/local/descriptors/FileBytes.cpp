#include "platform/local/descriptors/FileBytes.h"

#include "platform/local/descriptors/SystemProblem.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace prismo {

using Kind = Problem::Kind;

Result<struct stat> regularStatus(int descriptor, const std::string& path) {
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0) return systemProblem(Kind::unreadable, path);
    if (S_ISREG(status.st_mode)) return status;
    return Problem{Kind::unreadable, path,
                   S_ISDIR(status.st_mode) ? std::strerror(EISDIR) : "Not a regular file"};
}

Result<Data> readAll(int descriptor, std::size_t limit, const std::string& path) {
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0) return systemProblem(Kind::unreadable, path);
    Data bytes;
    if (auto read = readStart(descriptor, status, limit, bytes, path); !read) return read.problem();
    if (bytes.size() > limit) return Problem{Kind::unreadable, path, std::strerror(EFBIG)};
    return bytes;
}

Result<> readStart(int descriptor, const struct stat& status, std::size_t limit, Data& bytes,
                   const std::string& path) {
    // One more byte shows whether the file has grown in the meantime.
    std::size_t room = std::min(static_cast<std::size_t>(status.st_size), limit) + 1;
    std::size_t size = 0;
    for (;;) {
        bytes.resize(room);
        const auto result = ::read(descriptor, bytes.data() + size, room - size);
        if (result < 0) {
            if (errno != EINTR) return systemProblem(Kind::unreadable, path);
            continue;
        }
        size += static_cast<std::size_t>(result);
        // Only at its end does a regular file give less than was asked for.
        if (size > limit || size < room) break;
        room = std::min(2 * room, limit + 1);
    }
    bytes.resize(size);
    return Done{};
}

Result<> writeAll(int descriptor, std::string_view bytes, const std::string& path) {
    while (!bytes.empty()) {
        const auto result = ::write(descriptor, bytes.data(), bytes.size());
        if (result < 0 && errno != EINTR) return systemProblem(Kind::unwritable, path);
        if (result > 0) bytes.remove_prefix(static_cast<std::size_t>(result));
    }
    return Done{};
}

bool syncDirectory(int directory) {
    // Some file systems cannot sync a directory, and do not need it.
    return ::fsync(directory) == 0 || errno == EINVAL;
}

} // namespace prismo
