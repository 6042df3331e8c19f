#include "platform/linux/LinuxDevice.h"

#include "platform/linux/applications/InstalledApplications.h"
#include "platform/local/installation/BaseLayer.h"
#include "platform/local/processes/ChildProcess.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace prismo {

namespace {

constexpr const char* notifyParent = "/var/run";
constexpr mode_t notifyMode = 0700;

} // namespace

LinuxDevice::LinuxDevice(const std::string& rootPath, Clock clock)
    : LinuxDevice(rootPath, [=] { return std::make_unique<PollDriver>(clock); }) {}

LinuxDevice::LinuxDevice(const std::string& rootPath, const MakeDriver& makeDriver)
    : root_(rootPath),
      files_(root_, [this](FileProblem::Kind kind, std::string path,
                           std::string cause) { report(kind, std::move(path), std::move(cause)); }),
      notify_([this] { return openNotifyDirectory(); }), driver_(makeDriver()),
      desktop_([this](const std::string& path, const std::string& cause) { reportLibrary(path, cause); }),
      sender_([this](const std::string& path, const std::string& cause) { reportLibrary(path, cause); }),
      accounts_(AccountFile([this](int flags) { return root_.open(AccountFile::path, flags); },
                            root_.hostPath(AccountFile::path)),
                [this] { return sender_.service(); }) {}

void LinuxDevice::observe(const std::string& name) {
    reportNotify(FileProblem::Kind::unreadable, notify_.observe(name));
    if (notify_.descriptor() < 0 || std::exchange(isWatching_, true)) return;
    driver_->watch(notify_.descriptor(), [this] { readNotifications(); });
}

bool LinuxDevice::post(const std::string& name) {
    const int error = notify_.post(name);
    reportNotify(FileProblem::Kind::unwritable, error);
    return error == 0;
}

bool LinuxDevice::rehearsePost(const std::string& name) {
    const auto directory = root_.open(notifyDirectory, O_RDONLY | O_DIRECTORY);
    const auto isWritable = [&](const char* entry) {
        return ::faccessat(directory.get(), entry, W_OK, AT_EACCESS | AT_SYMLINK_NOFOLLOW) == 0;
    };
    const bool isFine = directory ? isWritable(name.c_str()) || (errno == ENOENT && isWritable("."))
                                  : errno == ENOENT && root_.couldMakeDirectories(notifyDirectory);
    if (!isFine) reportNotify(FileProblem::Kind::unwritable, errno);
    return isFine;
}

bool LinuxDevice::rehearseObserve() {
    const bool isFine = root_.open(notifyDirectory, O_RDONLY | O_DIRECTORY) ||
                        (errno == ENOENT && root_.couldMakeDirectories(notifyDirectory));
    if (!isFine) reportNotify(FileProblem::Kind::unreadable, errno);
    return isFine;
}

void LinuxDevice::readNotifications() {
    const int error = notify_.read([this](const std::string& name) {
        // The observer may run the loop, and what has arrived with this one is due there too.
        if (notify_.hasMore()) runLoop_.perform([this] { readNotifications(); });
        systemCenter().deliver(name);
    });
    reportNotify(FileProblem::Kind::unreadable, error);
}

UniqueFd LinuxDevice::openNotifyDirectory() {
    auto directory = root_.open(notifyDirectory, O_RDONLY | O_DIRECTORY);
    if (!directory && errno == ENOENT) {
        if (root_.makeDirectories(notifyParent, 0755) && root_.makeDirectories(notifyDirectory, notifyMode))
            directory = root_.open(notifyDirectory, O_RDONLY | O_DIRECTORY);
    }
    if (directory) closeToOthers(directory.get());
    return directory;
}

/// Whoever may write there could post, and whoever may read learns of all posts.
void LinuxDevice::closeToOthers(int directory) {
    struct stat status {};
    if (::fstat(directory, &status) != 0 || (status.st_mode & 07777) == notifyMode) return;
    // One that somebody else gave us serves all the same. That is said once.
    if (::fchmod(directory, notifyMode) == 0 || std::exchange(isOpenToOthersTold_, true)) return;
    report(FileProblem::Kind::unwritable, root_.hostPath(notifyDirectory),
           std::string("Its mode cannot be made 0700: ") + std::strerror(errno));
}

void LinuxDevice::reportNotify(FileProblem::Kind kind, int error) {
    if (error != 0) report(kind, root_.hostPath(notifyDirectory), std::strerror(error));
}

std::optional<std::string> LinuxDevice::run(const std::string& executable,
                                            const std::vector<std::string>& arguments) {
    return runAndRead(executable, arguments);
}

int LinuxDevice::start(const std::string& executable, const std::vector<std::string>& arguments,
                       const std::vector<std::string>& environment) {
    return spawnDetached(executable, arguments, environment);
}

std::vector<InstalledApplication> LinuxDevice::listApplications() {
    auto applications = findApplications(root_);
    // A host without a page on screen does without the desktop's, whose library takes longer to load than all
    // that `prismo2 get` does.
    const bool isWanted = applications.empty() && companions() != Companions::none;
    auto* desktop = isWanted ? desktop_.service() : nullptr;
    if (!desktop) return applications;
    applications = desktop->applications();
    std::erase_if(applications,
                  [](const auto& each) { return !isApplicationIdentifier(each.displayIdentifier); });
    desktopIcons_.adopt(applications);
    return applications;
}

std::optional<Data> LinuxDevice::readFile(const std::string& path) {
    if (desktopIcons_.holds(path)) return desktopIcons_.read(path);
    auto bytes = files_.readBytes(path);
    return bytes ? std::move(bytes) : readBaseLayer(path);
}

std::optional<Data> LinuxDevice::readBaseLayer(const std::string& path) {
    const auto directory = baseLayerDirectory();
    if (::access(directory.c_str(), X_OK) != 0) return std::nullopt;
    const DeviceRoot base(directory);
    return PropertyListFiles(base,
                             [this](FileProblem::Kind kind, std::string where, std::string cause) {
                                 report(kind, std::move(where), std::move(cause));
                             })
        .readBytes(path);
}

bool LinuxDevice::canOpen(const std::string& url) {
    auto* desktop = desktop_.service();
    return desktop && desktop->canOpen(url);
}

bool LinuxDevice::open(const std::string& url) {
    auto* desktop = desktop_.service();
    return desktop && desktop->open(url);
}

void LinuxDevice::requestAccountAccess(std::function<void(bool)> completion) {
    if (auto problem = accounts_.requestAccess(awaited(std::move(completion))))
        report(problem->kind, std::move(problem->path), std::move(problem->cause));
}

void LinuxDevice::send(const AccountRequest& request, std::function<void(int)> completion) {
    accounts_.send(request, awaited(std::move(completion)));
}

template <typename Answer>
std::function<void(Answer)> LinuxDevice::awaited(std::function<void(Answer)> completion) {
    return [completion = std::move(completion), hold = driver_->holdClock()](Answer answer) {
        completion(answer);
    };
}

void LinuxDevice::reportLibrary(const std::string& path, const std::string& cause) {
    // Links and requests come from every thread, problems from the loop's only.
    if (std::this_thread::get_id() == thread_)
        report(FileProblem::Kind::unreadable, path, cause);
    else
        runLoop_.perform([=, this] { report(FileProblem::Kind::unreadable, path, cause); });
}

} // namespace prismo
