#include "platform/linux/files/DeviceRoot.h"

#include "platform/local/descriptors/FileBytes.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <deque>
#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <system_error>
#include <vector>

namespace prismo {

namespace {

/// As many as the kernel follows.
constexpr int maximumLinks = 40;

[[noreturn]] void fail(const std::string& hostPath) {
    throw std::system_error(errno, std::generic_category(), hostPath);
}

/// The text of a link; nothing, with errno EINVAL, where the name is no link.
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

/// Of all paths, those below the user's home are given the directories that they need.
bool getsParents(const std::string& path) {
    const auto parts = components(path);
    const bool climbs = std::ranges::find(parts, "..") != parts.end();
    return !climbs && (isBelow(path, "/User") || isBelow(path, "/var/mobile"));
}

} // namespace

DeviceRoot::DeviceRoot(std::string hostPath, Resolution resolution)
    : hostPath_(std::move(hostPath)), resolution_(resolution),
      directory_(::open(hostPath_.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)) {
    if (!directory_) fail(hostPath_);
    while (hostPath_.ends_with('/'))
        hostPath_.pop_back();
}

std::string DeviceRoot::hostPath(std::string_view path) const {
    return hostPath_ + (path.starts_with('/') ? "" : "/") + std::string(path);
}

UniqueFd DeviceRoot::open(const std::string& path, int flags, mode_t mode) const {
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
    // An old kernel, a container's filter, or a rename that raced with "..".
    constexpr std::array refusals{ENOSYS, EPERM, E2BIG, EINVAL, EAGAIN};
    if (opened || std::ranges::find(refusals, errno) == refusals.end()) return opened;
    return walk(path, flags, mode);
}

UniqueFd DeviceRoot::walk(const std::string& path, int flags, mode_t mode) const {
    if (path.empty()) {
        errno = ENOENT;
        return {};
    }
    // Every directory on the way stays open: ".." goes back to the one that was passed, and so never above
    // the root, wherever others may move directories meanwhile.
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
        // Should it become a link in this moment, it is not followed.
        if (left.empty())
            return UniqueFd(::openat(here(), name.c_str(), flags | O_NOFOLLOW | O_CLOEXEC, mode));
        UniqueFd next(::openat(here(), name.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        if (!next) return next;
        passed.push_back(std::move(next));
    }
    return UniqueFd(::openat(here(), ".", flags | O_CLOEXEC, mode));
}

std::optional<DeviceRoot::Place> DeviceRoot::place(const std::string& path) const {
    auto at = path;
    for (int linksLeft = maximumLinks; linksLeft >= 0; --linksLeft) {
        auto [directory, name] = split(at);
        if (name.empty() || name == "." || name == ".." || name.find('\0') != std::string::npos) {
            errno = at.empty() ? ENOENT : name.find('\0') != std::string::npos ? EINVAL : EISDIR;
            return {};
        }
        auto opened = open(directory, O_RDONLY | O_DIRECTORY);
        if (!opened) return {};
        const auto target = linkText(opened.get(), name);
        if (!target) return Place{std::move(opened), std::move(name)};
        at = target->starts_with('/') ? *target : directory + *target;
    }
    errno = ELOOP;
    return {};
}

bool DeviceRoot::makeDirectories(const std::string& path, mode_t mode) const {
    int linksLeft = maximumLinks;
    return makeDirectories(path, mode, linksLeft);
}

bool DeviceRoot::makeDirectories(const std::string& path, mode_t mode, int& linksLeft) const {
    if (open(path, O_PATH | O_DIRECTORY)) return true;
    if (errno != ENOENT || path.empty()) return false;
    if (path.ends_with('/')) return makeDirectories(path.substr(0, path.size() - 1), mode, linksLeft);
    const auto [above, name] = split(path);
    if (!makeDirectories(above, mode, linksLeft)) return false;
    const auto directory = open(above, O_PATH | O_DIRECTORY);
    if (!directory) return false;
    // A link to what is missing: the directory is made where it leads.
    if (const auto target = linkText(directory.get(), name)) {
        if (linksLeft-- > 0)
            return makeDirectories(target->starts_with('/') ? *target : above + *target, mode, linksLeft);
        errno = ELOOP;
        return false;
    }
    if (::mkdirat(directory.get(), name.c_str(), mode) != 0) return errno == EEXIST;
    return sync(above);
}

/// Brings the directory's entries to the disk. One that this process may write and not read is passed over.
bool DeviceRoot::sync(const std::string& path) const {
    const auto directory = open(path, O_RDONLY | O_DIRECTORY);
    return directory ? syncDirectory(directory.get()) : errno == EACCES;
}

void DeviceRoot::makeHome() const {
    struct stat status {};
    if (::fstatat(directory_.get(), "User", &status, AT_SYMLINK_NOFOLLOW) == 0 || errno != ENOENT) return;
    // Where that fails, whoever needs the directory learns why.
    if (makeDirectories("/var/mobile", 0755) && ::symlinkat("var/mobile", directory_.get(), "User") == 0)
        sync("/");
}

bool DeviceRoot::makeParents(const std::string& path) const {
    if (!getsParents(path)) return true;
    makeHome();
    return makeDirectories(split(path).directory, 0755);
}

bool DeviceRoot::couldMakeParents(const std::string& path) const {
    const auto directory = split(path).directory;
    if (getsParents(path) && !open(directory, O_PATH | O_DIRECTORY)) return couldMakeDirectories(directory);
    errno = ENOENT;
    return false;
}

bool DeviceRoot::couldMakeDirectories(const std::string& path) const {
    if (const auto directory = open(path, O_PATH | O_DIRECTORY))
        return ::faccessat(directory.get(), ".", W_OK | X_OK, AT_EACCESS) == 0;
    if (errno != ENOENT || components(path).empty()) return false;
    return couldMakeDirectories(split(path.substr(0, path.find_last_not_of('/') + 1)).directory);
}

void makeDefaultDeviceRoot(const std::string& hostPath) {
    for (auto end = hostPath.find('/', 1);; end = hostPath.find('/', end + 1)) {
        const auto part = hostPath.substr(0, end);
        if (::mkdir(part.c_str(), 0700) == 0) {
            const UniqueFd above(::open((part + "/..").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
            if (above && !syncDirectory(above.get())) fail(part);
        } else if (errno != EEXIST) {
            // One that cannot be made, on a file system that cannot be written, may be there all the same.
            const int error = errno;
            if (::access(part.c_str(), F_OK) != 0) {
                errno = error;
                fail(part);
            }
        }
        if (end == std::string::npos) break;
    }
    const DeviceRoot root(hostPath);
    if (!root.makeParents("/User/Library/Preferences/")) fail(root.hostPath("/User/Library/Preferences"));
    for (const char* path : {"/Applications", "/var/run"})
        if (!root.makeDirectories(path, 0755)) fail(root.hostPath(path));
}

} // namespace prismo
