#include "cli/output/Results.h"

#include "cli/output/CommandError.h"
#include "platform/local/descriptors/UniqueFd.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace prismo::cli {

Results::Results() {
    UniqueFd ours(::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
    if (ours) stream_.reset(::fdopen(ours.get(), "w"));
    if (stream_) (void)ours.release();
    if (::dup2(STDERR_FILENO, STDOUT_FILENO) >= 0) return;
    const UniqueFd nowhere(::open("/dev/null", O_WRONLY | O_CLOEXEC));
    if (nowhere) ::dup2(nowhere.get(), STDOUT_FILENO);
}

void Results::write(const std::string& text) {
    errno = EBADF;
    if (!stream_ || std::fwrite(text.data(), 1, text.size(), stream_.get()) != text.size() ||
        std::fflush(stream_.get()) != 0)
        throw CommandError(failed, std::string("standard output: ") + std::strerror(errno));
}

bool Results::isTerminal() const { return stream_ && ::isatty(::fileno(stream_.get())) != 0; }

} // namespace prismo::cli
