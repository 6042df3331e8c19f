#pragma once

#include "platform/local/descriptors/UniqueFd.h"

#include <string>
#include <sys/stat.h>

namespace prismo::settings {

/// Ensures that each device root has one window: later instances ask the first one to raise its window.
///
/// The first instance holds a lock, which the kernel releases however the process ends, and a socket that
/// later ones find by name. It replaces a stale socket.
class Instance {
  public:
    /// Becomes the first instance, or asks the existing one to raise its window. The device and inode
    /// identify the root, whatever its path. `token` is the desktop's permission to take the focus, or "".
    /// Throws std::system_error with the file's name if there is no place for the lock or no answer.
    Instance(const struct stat& root, const std::string& token);
    ~Instance();
    Instance(const Instance&) = delete;
    Instance& operator=(const Instance&) = delete;

    bool isFirst() const { return static_cast<bool>(requests_); }
    /// First instance only: the socket on which the others' tokens arrive, one datagram each.
    int requests() const { return requests_.get(); }

  private:
    bool lock();
    /// A short name for the socket: its path may exceed the limit for socket addresses.
    std::string socketName() const;
    void listen();
    bool ask(const std::string& token) const;

    std::string path_;
    UniqueFd directory_;
    UniqueFd lock_;
    UniqueFd requests_;
    std::string name_;
};

} // namespace prismo::settings
