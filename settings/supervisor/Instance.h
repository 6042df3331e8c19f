#pragma once

#include "platform/local/descriptors/UniqueFd.h"

#include <string>
#include <sys/stat.h>

namespace prismo::settings {

/// That a device root has one window: the first program that comes for it is asked, by those that come later,
/// to put its window to the front.
///
/// The first holds a lock, which ends with it however it ends, and a socket that later ones find by name. A
/// socket that was left behind is replaced.
class Instance {
  public:
    /// Finds out whether this is the first, and asks the first one if it is not. The root is known by its
    /// device and inode, whatever its name. `token` is the desktop's permission to take the focus, if it gave
    /// one. Throws std::system_error, naming the file, where there is no place for the lock or no answer.
    Instance(const struct stat& root, const std::string& token);
    ~Instance();
    Instance(const Instance&) = delete;
    Instance& operator=(const Instance&) = delete;

    bool isFirst() const { return static_cast<bool>(requests_); }
    /// Of the first: the socket on which the tokens of the others arrive, one datagram each.
    int requests() const { return requests_.get(); }

  private:
    bool lock();
    /// How the socket is named to the kernel: its path may be longer than a socket's name can be.
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
