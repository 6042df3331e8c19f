#pragma once

#include "platform/local/descriptors/UniqueFd.h"

#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace prismo {

/// The directory of this machine that stands for the device's "/".
///
/// Takes the device's own absolute paths and never leaves the directory: a link, absolute or not, is followed
/// as it would be on the device. Operations fail with errno set, as system calls do.
class DeviceRoot {
  public:
    /// Who follows the links.
    enum class Resolution {
        /// The kernel, where it offers that; else this process.
        kernel,
        /// This process, one component at a time.
        walk,
    };

    /// Throws std::system_error, naming the host path, where that is no directory or cannot be opened.
    explicit DeviceRoot(std::string hostPath, Resolution resolution = Resolution::kernel);

    /// The path on this machine, as a person would name it.
    std::string hostPath(std::string_view path) const;

    /// Opens with these flags, and O_CLOEXEC. A link in the last place is followed; a new file gets `mode`
    /// less the process' umask.
    UniqueFd open(const std::string& path, int flags, mode_t mode = 0) const;

    /// A name in an open directory.
    struct Place {
        UniqueFd directory;
        std::string name;
    };
    /// Where the file stands, or would stand, once a link in the last place is followed. The directory can be
    /// read and synchronised. Nothing where there is no such directory, or where the path names one by ending
    /// in "/", "." or "..".
    std::optional<Place> place(const std::string& path) const;

    /// Makes the directories that the file at `path` needs, if that is below "/User" or "/var/mobile", mode
    /// 0755; other paths stay as they are. A root without "User" gets it as a link to "var/mobile", since on
    /// the device both names mean one directory. What is made is on the disk.
    bool makeParents(const std::string& path) const;
    /// Makes the directory and those above it, wherever they are. One that exists is left as it is.
    bool makeDirectories(const std::string& path, mode_t mode) const;

    /// Would `makeParents` make what the file lacks? No, with errno ENOENT, where it lacks nothing.
    bool couldMakeParents(const std::string& path) const;
    /// Would `makeDirectories` make the missing directory, as far as permissions tell?
    bool couldMakeDirectories(const std::string& path) const;

  private:
    UniqueFd walk(const std::string& path, int flags, mode_t mode) const;
    bool makeDirectories(const std::string& path, mode_t mode, int& linksLeft) const;
    bool sync(const std::string& path) const;
    void makeHome() const;

    std::string hostPath_;
    Resolution resolution_;
    UniqueFd directory_;
};

/// Makes the directory (mode 0700, parents included) with what an empty device has: the home of its user
/// under both names, "Applications" and "var/run". What exists stays. Throws std::system_error.
void makeDefaultDeviceRoot(const std::string& hostPath);

} // namespace prismo
