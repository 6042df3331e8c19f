#pragma once

#include "platform/local/descriptors/UniqueFd.h"

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace prismo {

/// System-wide notifications by means of one directory that all processes of a device share: a post touches
/// the file of its name, and the kernel tells each process that watches the directory, the posting one
/// included. Posts that a process has not yet read count as one for each name.
///
/// Whoever comes first, to post or to observe, makes the file. Observing needs /proc, since the kernel takes
/// watches by path only and the directory is known by descriptor only.
class NotifyDirectory {
  public:
    /// Opens the directory, having made it (mode 0700) where it is missing. Empty, with errno set, on
    /// failure.
    using OpenDirectory = std::function<UniqueFd()>;
    using Deliver = std::function<void(const std::string& name)>;

    /// Nothing is opened before the first post or observation.
    explicit NotifyDirectory(OpenDirectory openDirectory) : openDirectory_(std::move(openDirectory)) {}

    /// 0, or the error number: EINVAL for what is no notification's name, else what the kernel said.
    int post(const std::string& name);
    /// From now on `read` delivers posts of `name`. The file is made where that can be done; this is no post.
    /// 0, or the error number, as for `post`; EMFILE and ENOSPC where the user's inotify limits are reached.
    /// May be asked again, also to try once more.
    int observe(const std::string& name);

    /// Can be read when `read` has something to do. Negative until an observation got as far as having one.
    int descriptor() const { return inotify_.get(); }
    /// Delivers each observed name once that was posted from the last time until now, in the order of
    /// arrival; posts that come meanwhile wait for the next time, however fast they come. All of them when
    /// posts may have been missed: after an overflow of the kernel's queue (it keeps 16,384 events) and after
    /// the directory was removed or replaced, which begins a new one. 0, or the error number where that
    /// fails; then nothing more may arrive until an observation succeeds.
    ///
    /// Where `deliver` reads in its turn, that inner call goes on with what is left, and the outer one does
    /// not repeat it. The descriptor says nothing of what is left: see `hasMore`.
    int read(const Deliver& deliver);
    /// Is something left to deliver? A `deliver` that may run the loop then first queues a block that reads.
    bool hasMore() const { return !arrived_.empty(); }

  private:
    int touch(const std::string& name);
    int attach();
    int collect();
    void arrive(std::string_view name);

    OpenDirectory openDirectory_;
    std::vector<std::string> observed_;
    UniqueFd inotify_;
    int directory_ = -1;
    int parent_ = -1;
    std::deque<std::string> arrived_;
};

} // namespace prismo
