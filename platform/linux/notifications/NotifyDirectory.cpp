#include "platform/linux/notifications/NotifyDirectory.h"

#include "platform/foundation/Device.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace prismo {

namespace {

constexpr std::uint32_t lost = IN_DELETE_SELF | IN_MOVE_SELF | IN_UNMOUNT | IN_IGNORED;

/// False, with errno set, where it could not be made and is not there. Its making is no post: that is a
/// change of its times.
bool makeFile(int directory, const std::string& name) {
    const UniqueFd made(::openat(directory, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    return made || errno == EEXIST;
}

} // namespace

int NotifyDirectory::post(const std::string& name) {
    if (!isNotificationName(name)) return EINVAL;
    const int error = touch(name);
    // The file, or the whole directory, may be removed under our hands.
    return error == ENOENT ? touch(name) : error;
}

int NotifyDirectory::touch(const std::string& name) {
    // Opened for each post: a directory held open would not tell its watchers that it was removed, and posts
    // into a replaced one would reach nobody.
    const auto directory = openDirectory_();
    if (!directory) return errno;
    // The directory's entry is touched, whatever it is: nothing that was planted under the name is opened or
    // followed, and its watchers are told all the same. Times take no disk block, so a full disk silences
    // nobody.
    const auto touchEntry = [&] {
        return ::utimensat(directory.get(), name.c_str(), nullptr, AT_SYMLINK_NOFOLLOW) == 0 ? 0 : errno;
    };
    if (const int error = touchEntry(); error != ENOENT) return error;
    return makeFile(directory.get(), name) ? touchEntry() : errno;
}

int NotifyDirectory::observe(const std::string& name) {
    if (!isNotificationName(name)) return EINVAL;
    const bool isNew = std::ranges::find(observed_, name) == observed_.end();
    if (isNew) observed_.push_back(name);
    if (directory_ < 0) return attach();
    if (isNew)
        if (const auto directory = openDirectory_()) makeFile(directory.get(), name);
    return 0;
}

int NotifyDirectory::attach() {
    if (!inotify_) inotify_ = UniqueFd(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
    if (!inotify_) return errno;
    const auto directory = openDirectory_();
    if (!directory) return errno;
    const auto path = "/proc/self/fd/" + std::to_string(directory.get());
    const auto watch = [&](const std::string& watched, std::uint32_t events) {
        return ::inotify_add_watch(inotify_.get(), watched.c_str(), events | lost | IN_ONLYDIR);
    };
    // A removed directory that somebody holds open lives on and says nothing; its parent says when there is a
    // new one. The parent may be closed to us, and is not needed for anything else.
    parent_ = watch(path + "/..", IN_CREATE | IN_MOVED_TO);
    // One watch of the directory serves every name, and also a file that is removed and made again.
    directory_ = watch(path, IN_ATTRIB);
    if (directory_ < 0) return errno;
    for (const auto& name : observed_)
        makeFile(directory.get(), name);
    return 0;
}

int NotifyDirectory::read(const Deliver& deliver) {
    const int error = collect();
    while (!arrived_.empty()) {
        const auto name = std::move(arrived_.front());
        arrived_.pop_front();
        deliver(name);
    }
    return error;
}

int NotifyDirectory::collect() {
    constexpr std::size_t largestEvent = sizeof(inotify_event) + NAME_MAX + 1;
    alignas(inotify_event) std::array<char, 32 * largestEvent> buffer{};
    bool missed = false;
    bool perhapsReplaced = false;
    // What has arrived by now, and no more: in a flood there would be no end to it.
    int left = 0;
    ::ioctl(inotify_.get(), FIONREAD, &left);
    while (left > 0) {
        const auto result = ::read(inotify_.get(), buffer.data(), buffer.size());
        if (result <= 0) break;
        left -= static_cast<int>(result);
        const auto size = static_cast<std::size_t>(result);
        for (std::size_t at = 0; at < size;) {
            const auto& event = *reinterpret_cast<const inotify_event*>(buffer.data() + at);
            at += sizeof event + event.len;
            if ((event.mask & IN_Q_OVERFLOW) != 0) {
                missed = true;
            } else if (event.wd != directory_ && event.wd != parent_) {
                continue; // of a watch that has been given up
            } else if ((event.mask & lost) != 0) {
                missed = true;
                ::inotify_rm_watch(inotify_.get(), event.wd);
                (event.wd == directory_ ? directory_ : parent_) = -1;
            } else if (event.wd == parent_) {
                perhapsReplaced = perhapsReplaced || (event.mask & IN_ISDIR) != 0;
            } else if (event.len > 0) {
                arrive(event.name);
            }
        }
    }
    if (!missed && !perhapsReplaced) return 0;
    const int previous = directory_;
    const int error = attach();
    if (missed || directory_ != previous)
        for (const auto& name : observed_)
            arrive(name);
    return error;
}

void NotifyDirectory::arrive(std::string_view name) {
    if (std::ranges::find(observed_, name) == observed_.end()) return;
    if (std::ranges::find(arrived_, name) == arrived_.end()) arrived_.emplace_back(name);
}

} // namespace prismo
