#pragma once

#include "platform/foundation/Result.h"
#include "platform/local/descriptors/UniqueFd.h"

#include <string>
#include <string_view>
#include <sys/types.h>

namespace prismo {

/// The directory of this machine that stands for the device's "/".
///
/// Takes the device's own absolute paths and never leaves the directory: it follows a link, absolute or not,
/// as the device would. Problems name paths on this machine.
class DeviceRoot {
  public:
    /// Who follows the links.
    enum class Resolution {
        /// The kernel if it can, else this process.
        kernel,
        /// This process, one component at a time.
        walk,
    };

    /// The root in that directory. Fails as missing, or as unreadable if it is not a directory or cannot be
    /// opened.
    static Result<DeviceRoot> at(std::string hostPath, Resolution resolution = Resolution::kernel);

    /// The path on this machine, as a person would write it.
    std::string hostPath(std::string_view path) const;

    /// Opens with these flags and O_CLOEXEC. Follows a link at the end of the path. A new file gets `mode`
    /// minus the umask of the process. Fails as missing or unreadable.
    Result<UniqueFd> open(const std::string& path, int flags, mode_t mode = 0) const;

    /// A name in an open directory.
    struct Place {
        UniqueFd directory;
        std::string name;
        /// The path on this machine that led here, for problems.
        std::string path;
    };
    /// Where the file is, or would be, after following a link at the end of the path. The directory can be
    /// read and synced. Fails (unwritable) if there is no such directory, or if the path names a directory by
    /// ending in "/", "." or "..".
    Result<Place> place(const std::string& path) const;

    /// Makes the directories that the file at `path` needs, mode 0755, if it is below "/User" or
    /// "/var/mobile"; does nothing for other paths. A root without "User" gets it as a link to "var/mobile",
    /// since both names mean one directory on the device. What this makes is on the disk.
    Result<> makeParents(const std::string& path) const;
    /// Makes the directory and its parents, anywhere in the root. Leaves existing ones as they are.
    Result<> makeDirectories(const std::string& path, mode_t mode) const;

    /// Would `makeParents` make missing directories? Fails if it could not make them.
    Result<bool> couldMakeParents(const std::string& path) const;
    /// Could `makeDirectories` make the missing directory, judging by permissions?
    Result<> couldMakeDirectories(const std::string& path) const;

  private:
    DeviceRoot(std::string hostPath, Resolution resolution, UniqueFd directory);

    // These fail as system calls do: the descriptor is empty, or the result is false, and errno is set.
    UniqueFd openHere(const std::string& path, int flags, mode_t mode = 0) const;
    UniqueFd walk(const std::string& path, int flags, mode_t mode) const;
    bool makeHere(const std::string& path, mode_t mode, int& linksLeft) const;
    bool couldMakeHere(const std::string& path) const;
    bool sync(const std::string& path) const;
    void makeHome() const;
    Problem unwritable(const std::string& path) const;

    std::string hostPath_;
    Resolution resolution_;
    UniqueFd directory_;
};

/// Makes the directory (mode 0700, with its parents) and what an empty device has: the user's home under both
/// names, "Applications" and "var/run". Leaves existing directories as they are.
Result<> makeDefaultDeviceRoot(const std::string& hostPath);

} // namespace prismo
