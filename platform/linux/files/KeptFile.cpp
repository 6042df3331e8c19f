#include "platform/linux/files/KeptFile.h"

#include "platform/local/descriptors/FileBytes.h"
#include "platform/local/descriptors/SystemProblem.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <fcntl.h>
#include <sys/sendfile.h>
#include <unistd.h>

namespace prismo {

namespace {

/// More files with one name in one second than anybody needs.
constexpr int maximumAttempts = 1000;

std::string timeText() {
    const auto now = std::time(nullptr);
    std::tm parts{};
    ::gmtime_r(&now, &parts);
    std::array<char, 32> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y%m%dT%H%M%SZ", &parts)};
}

// These fail as system calls do: they return false with errno set.

bool copyAll(int from, int to) {
    off_t offset = 0;
    for (;;) {
        constexpr std::size_t piece = std::size_t{1} << 30;
        const auto size = ::sendfile(to, from, &offset, piece);
        if (size == 0) return true;
        if (size < 0 && errno != EINTR) return false;
    }
}

void discard(int directory, const std::string& kept) {
    const int error = errno;
    ::unlinkat(directory, kept.c_str(), 0);
    errno = error;
}

bool copyTo(int directory, const std::string& kept, int file, const struct stat& status) {
    const UniqueFd copy(::openat(directory, kept.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!copy) return false;
    // The copy gets the file's owner and mode. If the owner cannot be kept, nobody else may read it.
    if (copyAll(file, copy.get()) && ::fsync(copy.get()) == 0) {
        if (::fchown(copy.get(), status.st_uid, status.st_gid) == 0)
            ::fchmod(copy.get(), status.st_mode & 07777);
        return true;
    }
    discard(directory, kept);
    return false;
}

} // namespace

Result<std::string> keepNextTo(const DeviceRoot::Place& place, int file, const struct stat& status,
                               WriteMode mode) {
    const int directory = place.directory.get();
    const auto problem = [&] {
        auto found = systemProblem(Problem::Kind::unwritable, place.path);
        found.cause = "The old bytes cannot be kept: " + found.cause;
        return found;
    };
    const auto base = place.name + ".malformed-" + timeText();
    for (int attempt = 1; attempt <= maximumAttempts; ++attempt) {
        auto kept = attempt == 1 ? base : base + "-" + std::to_string(attempt);
        const bool isLinked = mode == WriteMode::atomically &&
                              ::linkat(directory, place.name.c_str(), directory, kept.c_str(), 0) == 0;
        if (isLinked || copyTo(directory, kept, file, status)) {
            if (syncDirectory(directory)) return kept;
            discard(directory, kept);
            return problem();
        }
        if (errno != EEXIST) break;
    }
    return problem();
}

} // namespace prismo
