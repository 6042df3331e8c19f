#pragma once

#include "platform/foundation/Result.h"
#include "platform/local/descriptors/UniqueFd.h"

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace prismo {

/// System-wide notifications through one directory that all processes of a device share. A post touches the
/// file with its name, and the kernel notifies each process that watches the directory, including the one
/// that posts. Posts that a process has not read yet count as one for each name.
///
/// The first process to post or observe a name makes its file. Observing needs /proc: the kernel takes
/// watches by path only, and this class knows the directory only by descriptor.
class NotifyDirectory {
  public:
    /// Opens the directory, and makes it (mode 0700) if it is missing.
    using OpenDirectory = std::function<Result<UniqueFd>()>;
    using Deliver = std::function<void(const std::string& name)>;

    /// `path` is the directory's path for problems. Opens nothing before the first post or observation.
    NotifyDirectory(std::string path, OpenDirectory openDirectory)
        : path_(std::move(path)), openDirectory_(std::move(openDirectory)) {}

    /// Fails as `notPosted`.
    Result<> post(const std::string& name);
    /// From now on `read` delivers posts of `name`. Makes the file if possible; that is not a post. Fails as
    /// `notObserved`, for instance if the user's inotify limits are reached. May be called again for the same
    /// name, also to try again after a failure.
    Result<> observe(const std::string& name);

    /// Readable when `read` has something to do. Negative until an observation got as far as opening it.
    int descriptor() const { return inotify_.get(); }
    /// Delivers each observed name that was posted between the last call and now, once, in order of arrival.
    /// Posts that arrive during the call wait for the next one, however fast they come.
    ///
    /// Delivers all names if posts may have been missed: after an overflow of the kernel's queue (it holds
    /// 16,384 events), and after the directory was removed or replaced. In the latter case it starts to watch
    /// the new one. If that fails (`notObserved`), nothing more may arrive until an observation succeeds.
    ///
    /// If `deliver` calls `read` itself, the inner call delivers what is left and the outer one does not
    /// repeat it. The descriptor does not show what is left; `hasMore` does.
    Result<> read(const Deliver& deliver);
    /// Is something left to deliver? A `deliver` that may run the loop first queues a block that reads.
    bool hasMore() const { return !arrived_.empty(); }

  private:
    Result<> touch(const std::string& name);
    Result<> attach();
    Result<> collect();
    void arrive(std::string_view name);

    std::string path_;
    OpenDirectory openDirectory_;
    std::vector<std::string> observed_;
    UniqueFd inotify_;
    int directory_ = -1;
    int parent_ = -1;
    std::deque<std::string> arrived_;
};

} // namespace prismo
