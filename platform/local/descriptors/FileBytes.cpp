#include "platform/local/descriptors/FileBytes.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace prismo {

std::string notRegular(const struct stat& status) {
    if (S_ISREG(status.st_mode)) return {};
    return S_ISDIR(status.st_mode) ? std::strerror(EISDIR) : "Not a regular file";
}

std::optional<Data> readAll(int descriptor, std::size_t limit) {
    struct stat status {};
    Data bytes;
    if (::fstat(descriptor, &status) != 0 || !readAll(descriptor, status, limit, bytes)) return {};
    return bytes;
}

bool readAll(int descriptor, const struct stat& status, std::size_t limit, Data& bytes) {
    // One byte more tells whether the file has grown meanwhile.
    std::size_t room = std::min(static_cast<std::size_t>(status.st_size), limit) + 1;
    std::size_t size = 0;
    for (;;) {
        bytes.resize(room);
        const auto result = ::read(descriptor, bytes.data() + size, room - size);
        if (result < 0) {
            if (errno != EINTR) return false;
            continue;
        }
        size += static_cast<std::size_t>(result);
        if (size > limit) {
            errno = EFBIG;
            return false;
        }
        if (size < room) break; // a regular file gives less than asked for at its end only
        room = std::min(2 * room, limit + 1);
    }
    bytes.resize(size);
    return true;
}

bool writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto result = ::write(descriptor, bytes.data(), bytes.size());
        if (result < 0 && errno != EINTR) return false;
        if (result > 0) bytes.remove_prefix(static_cast<std::size_t>(result));
    }
    return true;
}

bool syncDirectory(int directory) {
    // Some file systems cannot synchronise a directory, and then need not.
    return ::fsync(directory) == 0 || errno == EINVAL;
}

} // namespace prismo
