#include "platform/linux/files/DeviceRoot.h"

#include "platform/local/descriptors/FileBytes.h"
#include "platform/local/descriptors/SystemProblem.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <deque>
#include <fcntl.h>
#include <linux/openat2.h>
#include <optional>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <vector>

namespace prismo {

namespace {

using Kind = Problem::Kind;

/// As many as the kernel follows.
constexpr int maximumLinks = 40;

/// The text of a link. Returns nullopt, with errno EINVAL, if the name is not a link.
std::optional<std::string> linkText(int directory, const std::string& name) {
    std::array<char, PATH_MAX> buffer{};
    const auto size = ::readlinkat(directory, name.c_str(), buffer.data(), buffer.size());
    if (size < 0) return {};
    return std::string(buffer.data(), static_cast<std::size_t>(size));
}

std::vector<std::string> components(std::string_view path) {
    std::vector<std::string> result;
    while (!path.empty()) {
        const auto name = path.substr(0, path.find('/'));
        if (!name.empty() && name != ".") result.emplace_back(name);
        path.remove_prefix(std::min(path.size(), name.size() + 1));
    }
    return result;
}

struct Split {
    std::string directory;
    std::string name;
};

Split split(const std::string& path) {
    const auto slash = path.rfind('/');
    if (slash == std::string::npos) return {"/", path};
    return {path.substr(0, slash + 1), path.substr(slash + 1)};
}

bool isBelow(std::string_view path, std::string_view directory) {
    return path.starts_with(directory) && path.substr(directory.size()).starts_with('/');
}

/// Only paths below the user's home get the directories that they need.
bool getsParents(const std::string& path) {
    const auto parts = components(path);
    const bool climbs = std::ranges::find(parts, "..") != parts.end();
    return !climbs && (isBelow(path, "/User") || isBelow(path, "/var/mobile"));
}

} // namespace

Result<DeviceRoot> DeviceRoot::at(std::string hostPath, Resolution resolution) {
    UniqueFd directory(::open(hostPath.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!directory) return systemProblem(errno == ENOENT ? Kind::missing : Kind::unreadable, hostPath);
    return DeviceRoot(std::move(hostPath), resolution, std::move(directory));
}

DeviceRoot::DeviceRoot(std::string hostPath, Resolution resolution, UniqueFd directory)
    : hostPath_(std::move(hostPath)), resolution_(resolution), directory_(std::move(directory)) {
    while (hostPath_.ends_with('/'))
        hostPath_.pop_back();
}

std::string DeviceRoot::hostPath(std::string_view path) const {
    return hostPath_ + (path.starts_with('/') ? "" : "/") + std::string(path);
}

Problem DeviceRoot::unwritable(const std::string& path) const {
    return systemProblem(Kind::unwritable, hostPath(path.substr(0, path.find_last_not_of('/') + 1)));
}

Result<UniqueFd> DeviceRoot::open(const std::string& path, int flags, mode_t mode) const {
    auto opened = openHere(path, flags, mode);
    if (!opened) return readProblem(hostPath(path));
    return opened;
}

UniqueFd DeviceRoot::openHere(const std::string& path, int flags, mode_t mode) const {
    if (path.find('\0') != std::string::npos) {
        errno = EINVAL;
        return {};
    }
    if (resolution_ == Resolution::walk) return walk(path, flags, mode);
    open_how how{};
    how.flags = static_cast<__u64>(flags | O_CLOEXEC);
    how.mode = mode;
    how.resolve = RESOLVE_IN_ROOT | RESOLVE_NO_MAGICLINKS;
    UniqueFd opened(
        static_cast<int>(::syscall(SYS_openat2, directory_.get(), path.c_str(), &how, sizeof how)));
    // An old kernel, the filter of a container, or a rename that raced with "..".
    constexpr std::array refusals{ENOSYS, EPERM, E2BIG, EINVAL, EAGAIN};
    if (opened || std::ranges::find(refusals, errno) == refusals.end()) return opened;
    return walk(path, flags, mode);
}

UniqueFd DeviceRoot::walk(const std::string& path, int flags, mode_t mode) const {
    if (path.empty()) {
        errno = ENOENT;
        return {};
    }
    // Every directory on the way stays open. ".." goes back to the previous one, so it never gets above the
    // root, even if other processes move directories in the meantime.
    std::vector<UniqueFd> passed;
    const auto here = [&] { return passed.empty() ? directory_.get() : passed.back().get(); };
    const auto parts = components(path);
    std::deque<std::string> left(parts.begin(), parts.end());
    if (path.ends_with('/') || path.ends_with("/.")) flags |= O_DIRECTORY;
    int linksLeft = maximumLinks;
    while (!left.empty()) {
        const auto name = std::move(left.front());
        left.pop_front();
        if (name == "..") {
            if (!passed.empty()) passed.pop_back();
            continue;
        }
        if (const auto target = linkText(here(), name)) {
            if (linksLeft-- == 0) {
                errno = ELOOP;
                return {};
            }
            if (target->starts_with('/')) passed.clear();
            const auto inner = components(*target);
            left.insert(left.begin(), inner.begin(), inner.end());
            continue;
        }
        // If it becomes a link at this moment, it is not followed.
        if (left.empty())
            return UniqueFd(::openat(here(), name.c_str(), flags | O_NOFOLLOW | O_CLOEXEC, mode));
        UniqueFd next(::openat(here(), name.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        if (!next) return next;
        passed.push_back(std::move(next));
    }
    return UniqueFd(::openat(here(), ".", flags | O_CLOEXEC, mode));
}

Result<DeviceRoot::Place> DeviceRoot::place(const std::string& path) const {
    auto at = path;
    for (int linksLeft = maximumLinks; linksLeft >= 0; --linksLeft) {
        auto [directory, name] = split(at);
        if (name.empty() || name == "." || name == ".." || name.find('\0') != std::string::npos) {
            errno = at.empty() ? ENOENT : name.find('\0') != std::string::npos ? EINVAL : EISDIR;
            return unwritable(path);
        }
        auto opened = openHere(directory, O_RDONLY | O_DIRECTORY);
        if (!opened) return unwritable(path);
        const auto target = linkText(opened.get(), name);
        if (!target) return Place{std::move(opened), std::move(name), hostPath(path)};
        at = target->starts_with('/') ? *target : directory + *target;
    }
    errno = ELOOP;
    return unwritable(path);
}

Result<> DeviceRoot::makeDirectories(const std::string& path, mode_t mode) const {
    int linksLeft = maximumLinks;
    if (!makeHere(path, mode, linksLeft)) return unwritable(path);
    return Done{};
}

bool DeviceRoot::makeHere(const std::string& path, mode_t mode, int& linksLeft) const {
    if (openHere(path, O_PATH | O_DIRECTORY)) return true;
    if (errno != ENOENT || path.empty()) return false;
    if (path.ends_with('/')) return makeHere(path.substr(0, path.size() - 1), mode, linksLeft);
    const auto [above, name] = split(path);
    if (!makeHere(above, mode, linksLeft)) return false;
    const auto directory = openHere(above, O_PATH | O_DIRECTORY);
    if (!directory) return false;
    // For a dangling link, make the directory that it points to.
    if (const auto target = linkText(directory.get(), name)) {
        if (linksLeft-- > 0)
            return makeHere(target->starts_with('/') ? *target : above + *target, mode, linksLeft);
        errno = ELOOP;
        return false;
    }
    if (::mkdirat(directory.get(), name.c_str(), mode) != 0) return errno == EEXIST;
    return sync(above);
}

/// Brings the directory's entries to the disk. Skips a directory that this process may write but not read.
bool DeviceRoot::sync(const std::string& path) const {
    const auto directory = openHere(path, O_RDONLY | O_DIRECTORY);
    return directory ? syncDirectory(directory.get()) : errno == EACCES;
}

void DeviceRoot::makeHome() const {
    struct stat status = {};
    if (::fstatat(directory_.get(), "User", &status, AT_SYMLINK_NOFOLLOW) == 0 || errno != ENOENT) return;
    // If this fails, the next use of the directory reports why.
    if (makeDirectories("/var/mobile", 0755) && ::symlinkat("var/mobile", directory_.get(), "User") == 0)
        sync("/");
}

Result<> DeviceRoot::makeParents(const std::string& path) const {
    if (!getsParents(path)) return Done{};
    makeHome();
    int linksLeft = maximumLinks;
    if (!makeHere(split(path).directory, 0755, linksLeft)) return unwritable(path);
    return Done{};
}

Result<bool> DeviceRoot::couldMakeParents(const std::string& path) const {
    const auto directory = split(path).directory;
    if (!getsParents(path) || openHere(directory, O_PATH | O_DIRECTORY)) return false;
    if (!couldMakeHere(directory)) return unwritable(path);
    return true;
}

Result<> DeviceRoot::couldMakeDirectories(const std::string& path) const {
    if (!couldMakeHere(path)) return unwritable(path);
    return Done{};
}

bool DeviceRoot::couldMakeHere(const std::string& path) const {
    if (const auto directory = openHere(path, O_PATH | O_DIRECTORY))
        return ::faccessat(directory.get(), ".", W_OK | X_OK, AT_EACCESS) == 0;
    if (errno != ENOENT || components(path).empty()) return false;
    return couldMakeHere(split(path.substr(0, path.find_last_not_of('/') + 1)).directory);
}

Result<> makeDefaultDeviceRoot(const std::string& hostPath) {
    for (auto end = hostPath.find('/', 1);; end = hostPath.find('/', end + 1)) {
        const auto part = hostPath.substr(0, end);
        if (::mkdir(part.c_str(), 0700) == 0) {
            const UniqueFd above(::open((part + "/..").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
            if (above && !syncDirectory(above.get())) return systemProblem(Kind::unwritable, part);
        } else if (errno != EEXIST) {
            // On a read-only file system the directory cannot be made, but may exist.
            auto problem = systemProblem(Kind::unwritable, part);
            if (::access(part.c_str(), F_OK) != 0) return problem;
        }
        if (end == std::string::npos) break;
    }
    const auto opened = DeviceRoot::at(hostPath);
    if (!opened) return opened.problem();
    const auto& root = opened.value();
    if (auto made = root.makeParents("/User/Library/Preferences/"); !made) return made;
    for (const char* path : {"/Applications", "/var/run"})
        if (auto made = root.makeDirectories(path, 0755); !made) return made;
    return Done{};
}

} // namespace prismo
