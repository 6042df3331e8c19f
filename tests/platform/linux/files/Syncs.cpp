#include "tests/platform/linux/files/Syncs.h"

#include <cerrno>
#include <filesystem>
#include <sys/syscall.h>
#include <unistd.h>

namespace prismo {

namespace {

Syncs* current = nullptr;

int reallySync(int descriptor) { return static_cast<int>(::syscall(SYS_fsync, descriptor)); }

} // namespace

Syncs::Syncs(int failing) : failing_(failing) { current = this; }

Syncs::~Syncs() { current = nullptr; }

int Syncs::sync(int descriptor) {
    if (++calls_ == failing_) {
        errno = EIO;
        return -1;
    }
    paths_.push_back(std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(descriptor)));
    return reallySync(descriptor);
}

} // namespace prismo

/// Replaces the C library's function.
extern "C" int fsync(int fd) { return prismo::current ? prismo::current->sync(fd) : prismo::reallySync(fd); }
