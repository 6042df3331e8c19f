#pragma once

#include <cerrno>
#include <unistd.h>
#include <utility>

namespace prismo {

/// Owns a file descriptor and closes it. Negative if it holds none. Closing does not change errno.
class UniqueFd {
  public:
    UniqueFd() = default;
    explicit UniqueFd(int descriptor) : descriptor_(descriptor) {}
    ~UniqueFd() { reset(); }
    UniqueFd(UniqueFd&& other) noexcept : descriptor_(other.release()) {}
    UniqueFd& operator=(UniqueFd&& other) noexcept {
        reset(other.release());
        return *this;
    }

    int get() const { return descriptor_; }
    explicit operator bool() const { return descriptor_ >= 0; }

    /// Gives up ownership.
    int release() { return std::exchange(descriptor_, -1); }

    void reset(int descriptor = -1) {
        const int previous = std::exchange(descriptor_, descriptor);
        if (previous < 0) return;
        const int error = errno;
        ::close(previous);
        errno = error;
    }

  private:
    int descriptor_ = -1;
};

} // namespace prismo
