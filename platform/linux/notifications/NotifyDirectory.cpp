#include "platform/linux/notifications/NotifyDirectory.h"

#include "platform/foundation/Device.h"
#include "platform/local/descriptors/SystemProblem.h"

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

using Kind = Problem::Kind;

constexpr std::uint32_t lost = IN_DELETE_SELF | IN_MOVE_SELF | IN_UNMOUNT | IN_IGNORED;

/// Makes the file if it is missing. Returns false, with errno set, if that failed. Making it is not a post:
/// that is a change of its times.
bool makeFile(int directory, const std::string& name) {
    const UniqueFd made(::openat(directory, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    return made || errno == EEXIST;
}

Result<> checkName(Problem::Kind kind, const std::string& path, const std::string& name) {
    if (isNotificationName(name)) return Done{};
    return Problem{kind, path, "'" + name + "' is not a notification name"};
}

} // namespace

Result<> NotifyDirectory::post(const std::string& name) {
    if (auto checked = checkName(Kind::notPosted, path_, name); !checked) return checked;
    auto touched = touch(name);
    // Another process may remove the file, or the whole directory, at any moment.
    if (!touched && touched.problem().kind == Kind::missing) touched = touch(name);
    if (!touched) return touched.problem().as(Kind::notPosted);
    return touched;
}

/// Touches the file of that name, which is a post. Fails as `missing` if the file or directory was removed
/// meanwhile.
Result<> NotifyDirectory::touch(const std::string& name) {
    // Opened for each post: while a directory is held open, its watchers do not learn that it was removed,
    // and posts into a replaced one would reach nobody.
    const auto opened = openDirectory_();
    if (!opened) return opened.problem();
    const int directory = opened.value().get();
    // This touches the directory's entry, whatever it is. It does not open or follow anything that was
    // planted under the name, and the watchers are notified anyway. Times take no disk block, so posts work
    // on a full disk.
    const auto touchEntry = [&] {
        return ::utimensat(directory, name.c_str(), nullptr, AT_SYMLINK_NOFOLLOW) == 0;
    };
    if (touchEntry() || (errno == ENOENT && makeFile(directory, name) && touchEntry())) return Done{};
    return readProblem(path_);
}

Result<> NotifyDirectory::observe(const std::string& name) {
    if (auto checked = checkName(Kind::notObserved, path_, name); !checked) return checked;
    const bool isNew = std::ranges::find(observed_, name) == observed_.end();
    if (isNew) observed_.push_back(name);
    if (directory_ < 0) return attach();
    if (isNew)
        if (const auto directory = openDirectory_()) makeFile(directory.value().get(), name);
    return Done{};
}

Result<> NotifyDirectory::attach() {
    if (!inotify_) inotify_ = UniqueFd(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
    if (!inotify_) return systemProblem(Kind::notObserved, path_);
    const auto opened = openDirectory_();
    if (!opened) return opened.problem().as(Kind::notObserved);
    const int directory = opened.value().get();
    const auto path = "/proc/self/fd/" + std::to_string(directory);
    const auto watch = [&](const std::string& watched, std::uint32_t events) {
        return ::inotify_add_watch(inotify_.get(), watched.c_str(), events | lost | IN_ONLYDIR);
    };
    // A removed directory that some process holds open produces no events, but its parent shows when there is
    // a new one. We may lack access to the parent, and need it for nothing else.
    parent_ = watch(path + "/..", IN_CREATE | IN_MOVED_TO);
    // One watch on the directory serves all names, even if a file is removed and made again.
    directory_ = watch(path, IN_ATTRIB);
    if (directory_ < 0) return systemProblem(Kind::notObserved, path_);
    for (const auto& name : observed_)
        makeFile(directory, name);
    return Done{};
}

Result<> NotifyDirectory::read(const Deliver& deliver) {
    auto collected = collect();
    while (!arrived_.empty()) {
        const auto name = std::move(arrived_.front());
        arrived_.pop_front();
        deliver(name);
    }
    return collected;
}

Result<> NotifyDirectory::collect() {
    constexpr std::size_t largestEvent = sizeof(inotify_event) + NAME_MAX + 1;
    alignas(inotify_event) std::array<char, 32 * largestEvent> buffer{};
    bool missed = false;
    bool mayBeReplaced = false;
    // Read only what has arrived by now: in a flood of posts the loop would never end.
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
                continue; // the event of a watch that was removed
            } else if ((event.mask & lost) != 0) {
                missed = true;
                ::inotify_rm_watch(inotify_.get(), event.wd);
                (event.wd == directory_ ? directory_ : parent_) = -1;
            } else if (event.wd == parent_) {
                mayBeReplaced = mayBeReplaced || (event.mask & IN_ISDIR) != 0;
            } else if (event.len > 0) {
                arrive(event.name);
            }
        }
    }
    if (!missed && !mayBeReplaced) return Done{};
    const int previous = directory_;
    auto attached = attach();
    if (missed || directory_ != previous)
        for (const auto& name : observed_)
            arrive(name);
    return attached;
}

void NotifyDirectory::arrive(std::string_view name) {
    if (std::ranges::find(observed_, name) == observed_.end()) return;
    if (std::ranges::find(arrived_, name) == arrived_.end()) arrived_.emplace_back(name);
}

} // namespace prismo
