#include "platform/linux/LinuxDevice.h"

#include "platform/linux/applications/InstalledApplications.h"
#include "platform/linux/files/BaseLayerRoot.h"
#include "platform/local/descriptors/SystemProblem.h"
#include "platform/local/processes/ChildProcess.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace prismo {

namespace {

using Kind = Problem::Kind;

constexpr const char* notifyDirectory = "/var/run/notify";
constexpr const char* notifyParent = "/var/run";
constexpr mode_t notifyMode = 0700;

LinuxDevice::MakeDriver pollDriver(PollDriver::Clock clock) {
    return [clock] { return std::make_unique<PollDriver>(clock); };
}

} // namespace

LinuxDevice::LinuxDevice(const std::string& rootPath, Clock clock, Companions companions)
    : LinuxDevice(rootPath, pollDriver(clock), companions) {}

LinuxDevice::LinuxDevice(const std::string& rootPath, const MakeDriver& makeDriver, Companions companions)
    : root_(valueOrThrow(DeviceRoot::at(rootPath))), companions_(companions),
      files_(root_, [this](const Problem& problem) { report(problem); }),
      notify_(root_.hostPath(notifyDirectory), [this] { return openNotifyDirectory(); }),
      driver_(makeDriver()), desktop_([this](const Problem& problem) { reportFromAnyThread(problem); }),
      sender_([this](const Problem& problem) { reportFromAnyThread(problem); }),
      accounts_(AccountFile([this](int flags) { return root_.open(AccountFile::path, flags); },
                            root_.hostPath(AccountFile::path)),
                [this] { return sender_.service(); }) {}

template <typename Value>
std::optional<Value> LinuxDevice::valueOrReport(Result<std::optional<Value>> result) {
    if (result) return std::move(result).value();
    report(result.problem());
    return std::nullopt;
}

std::optional<Dictionary> LinuxDevice::readPropertyList(const std::string& path) {
    return valueOrReport(files_.read(path));
}

std::optional<Data> LinuxDevice::readFile(const std::string& path) {
    if (desktopIcons_.holds(path)) return desktopIcons_.read(path);
    if (auto bytes = valueOrReport(files_.readBytes(path))) return bytes;
    return valueOrReport(readBaseLayer(path));
}

Result<std::optional<Data>> LinuxDevice::readBaseLayer(const std::string& path) {
    const auto base = openBaseLayer();
    if (!base && base.problem().kind == Kind::missing) return std::optional<Data>();
    if (!base) return base.problem();
    return PropertyListFiles(base.value(), {}).readBytes(path);
}

Result<> LinuxDevice::observe(const std::string& name) {
    if (companions_ != Companions::all) return Done{};
    auto observed = notify_.observe(name);
    if (notify_.descriptor() >= 0 && !std::exchange(isWatching_, true))
        driver_->watch(notify_.descriptor(), [this] { readNotifications(); });
    return observed;
}

Result<> LinuxDevice::rehearsePost(const std::string& name) {
    const auto opened = root_.open(notifyDirectory, O_RDONLY | O_DIRECTORY);
    if (!opened) {
        if (opened.problem().kind != Kind::missing) return opened.problem().as(Kind::notPosted);
        auto could = root_.couldMakeDirectories(notifyDirectory);
        if (!could) return could.problem().as(Kind::notPosted);
        return could;
    }
    const auto isWritable = [&](const char* entry) {
        return ::faccessat(opened.value().get(), entry, W_OK, AT_EACCESS | AT_SYMLINK_NOFOLLOW) == 0;
    };
    if (isWritable(name.c_str()) || (errno == ENOENT && isWritable("."))) return Done{};
    return systemProblem(Kind::notPosted, root_.hostPath(notifyDirectory));
}

Result<> LinuxDevice::rehearseObserve() {
    const auto opened = root_.open(notifyDirectory, O_RDONLY | O_DIRECTORY);
    if (opened) return Done{};
    if (opened.problem().kind != Kind::missing) return opened.problem().as(Kind::notObserved);
    auto could = root_.couldMakeDirectories(notifyDirectory);
    if (!could) return could.problem().as(Kind::notObserved);
    return could;
}

void LinuxDevice::readNotifications() {
    succeeded(notify_.read([this](const std::string& name) {
        // The observer may run the loop, which must deliver the names that arrived together with this one.
        if (notify_.hasMore()) runLoop_.perform([this] { readNotifications(); });
        systemCenter().deliver(name);
    }));
}

Result<UniqueFd> LinuxDevice::openNotifyDirectory() {
    constexpr int flags = O_RDONLY | O_DIRECTORY;
    auto directory = root_.open(notifyDirectory, flags);
    if (!directory && directory.problem().kind == Kind::missing) {
        auto made = root_.makeDirectories(notifyParent, 0755);
        if (made) made = root_.makeDirectories(notifyDirectory, notifyMode);
        if (!made) return Problem{made.problem().kind, root_.hostPath(notifyDirectory), made.problem().cause};
        directory = root_.open(notifyDirectory, flags);
    }
    if (directory) closeToOthers(directory.value().get());
    return directory;
}

/// Anybody who can write there can post, and anybody who can read there sees all posts.
void LinuxDevice::closeToOthers(int directory) {
    struct stat status = {};
    if (::fstat(directory, &status) != 0 || (status.st_mode & 07777) == notifyMode) return;
    if (::fchmod(directory, notifyMode) == 0 || std::exchange(hasReportedOpenToOthers_, true)) return;
    // A directory that belongs to another user works anyway.
    auto problem = systemProblem(Kind::notPrivate, root_.hostPath(notifyDirectory));
    problem.cause = "Its mode cannot be made 0700: " + problem.cause;
    report(problem);
}

Result<std::string> LinuxDevice::run(const std::string& executable,
                                     const std::vector<std::string>& arguments) {
    if (companions_ == Companions::none) return Problem{Kind::notStarted, executable, "No tasks are run"};
    return runAndRead(executable, arguments);
}

int LinuxDevice::start(const std::string& executable, const std::vector<std::string>& arguments,
                       const std::vector<std::string>& environment) {
    return spawnDetached(executable, arguments, environment);
}

std::vector<InstalledApplication> LinuxDevice::listApplications() {
    auto applications = findApplications(root_);
    // Loading the desktop's library takes longer than all that `prismo2 get` does.
    const bool needsDesktop = applications.empty() && companions_ != Companions::none;
    auto* desktop = needsDesktop ? desktop_.service() : nullptr;
    if (!desktop) return applications;
    applications = desktop->applications();
    std::erase_if(applications,
                  [](const auto& each) { return !isApplicationIdentifier(each.displayIdentifier); });
    desktopIcons_.adopt(applications);
    return applications;
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
    succeeded(accounts_.requestAccess(awaited(std::move(completion))));
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

void LinuxDevice::reportFromAnyThread(const Problem& problem) {
    if (std::this_thread::get_id() == thread_)
        report(problem);
    else
        runLoop_.perform([this, problem] { report(problem); });
}

} // namespace prismo
