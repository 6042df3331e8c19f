#include "platform/linux/files/KeptFile.h"

#include "platform/local/descriptors/FileBytes.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <fcntl.h>
#include <sys/sendfile.h>
#include <unistd.h>

namespace prismo {

namespace {

/// As many files of one name and one second as anybody could want.
constexpr int maximumAttempts = 1000;

std::string timeText() {
    const auto now = std::time(nullptr);
    std::tm parts{};
    ::gmtime_r(&now, &parts);
    std::array<char, 32> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y%m%dT%H%M%SZ", &parts)};
}

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
    // Who may read it is the file's own business; where the owner cannot be kept, nobody else may.
    if (copyAll(file, copy.get()) && ::fsync(copy.get()) == 0) {
        if (::fchown(copy.get(), status.st_uid, status.st_gid) == 0)
            ::fchmod(copy.get(), status.st_mode & 07777);
        return true;
    }
    discard(directory, kept);
    return false;
}

} // namespace

std::optional<std::string> keepBeside(int directory, const std::string& name, int file,
                                      const struct stat& status, WriteMode mode) {
    const auto base = name + ".malformed-" + timeText();
    for (int attempt = 1; attempt <= maximumAttempts; ++attempt) {
        auto kept = attempt == 1 ? base : base + "-" + std::to_string(attempt);
        const bool isLinked = mode == WriteMode::atomically &&
                              ::linkat(directory, name.c_str(), directory, kept.c_str(), 0) == 0;
        if (isLinked || copyTo(directory, kept, file, status)) {
            if (syncDirectory(directory)) return kept;
            discard(directory, kept);
            return {};
        }
        if (errno != EEXIST) return {};
    }
    return {};
}

} // namespace prismo
