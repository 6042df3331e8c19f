#pragma once

#include "platform/foundation/Device.h"
#include "platform/linux/files/DeviceRoot.h"
#include "platform/linux/files/PropertyListFiles.h"
#include "platform/linux/notifications/NotifyDirectory.h"
#include "platform/local/accounts/AccountService.h"
#include "platform/local/accounts/RequestSender.h"
#include "platform/local/descriptors/PollDriver.h"
#include "platform/local/desktop/DesktopIcons.h"
#include "platform/local/desktop/DesktopServices.h"
#include "platform/local/installation/ServiceLibrary.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace prismo {

/// The device whose files are in a directory of this machine, its device root.
///
/// Notifications pass through the root's "/var/run/notify", and so between all processes that work on that
/// root. Children are processes of this machine; their paths are not the root's. This machine's desktop opens
/// links, and its applications stand in for those of a root that has none. If a library that links or
/// requests need is missing on this machine, that is a problem (missingService).
///
/// The destructor waits for answers of the accounts service, and a few seconds for requests that are under
/// way.
class LinuxDevice : public Device {
  public:
    using Clock = PollDriver::Clock;

    /// What a host needs besides files. Less of it starts faster.
    enum class Companions {
        /// Runs no tasks, observes no notifications, and knows only the device root's own applications: for a
        /// host that shows no page.
        none,
        /// Observes no notifications: for a host that shows a page and ends.
        page,
        all,
    };

    /// Throws ProblemError if the root is not a directory or cannot be opened.
    explicit LinuxDevice(const std::string& rootPath, Clock clock = Clock::monotonic,
                         Companions companions = Companions::all);
    /// Its run loop waits in the driver that `makeDriver` makes.
    using MakeDriver = std::function<std::unique_ptr<DescriptorDriver>()>;
    LinuxDevice(const std::string& rootPath, const MakeDriver& makeDriver,
                Companions companions = Companions::all);

    const DeviceRoot& root() const { return root_; }

    RunLoop& runLoop() override { return runLoop_; }
    std::chrono::system_clock::time_point wallClock() override { return std::chrono::system_clock::now(); }

    std::optional<Dictionary> readPropertyList(const std::string& path) override;
    /// Also finds files of the base layer, which the product ships for every device, if the root has none at
    /// that path. A base layer that is not installed has no files; one that cannot be read is a problem.
    std::optional<Data> readFile(const std::string& path) override;

    void requestAccountAccess(std::function<void(bool granted)> completion) override;
    std::vector<Account> accounts() override { return accounts_.accounts(); }

    // For a dry run. These change nothing, and fail if the real operation would.
    Result<> rehearseWrite(const std::string& path, const Dictionary& dictionary, WriteMode mode) {
        return files_.rehearseWrite(path, dictionary, mode);
    }
    Result<> rehearsePost(const std::string& name);
    Result<> rehearseObserve();

  protected:
    Result<> write(const std::string& path, const Dictionary& dictionary, WriteMode mode) override {
        return files_.write(path, dictionary, mode);
    }
    Result<> post(const std::string& name) override { return notify_.post(name); }
    Result<> observe(const std::string& name) override;
    Result<std::string> run(const std::string& executable,
                            const std::vector<std::string>& arguments) override;
    int start(const std::string& executable, const std::vector<std::string>& arguments,
              const std::vector<std::string>& environment) override;
    std::vector<InstalledApplication> listApplications() override;
    bool canOpen(const std::string& url) override;
    bool open(const std::string& url) override;
    void send(const AccountRequest& request, std::function<void(int status)> completion) override;

  private:
    /// The value, or nullopt after reporting the problem.
    template <typename Value>
    std::optional<Value> valueOrReport(Result<std::optional<Value>> result);
    Result<std::optional<Data>> readBaseLayer(const std::string& path);
    /// `completion`, which keeps a virtual clock from moving until it is called.
    template <typename Answer>
    std::function<void(Answer)> awaited(std::function<void(Answer)> completion);
    Result<UniqueFd> openNotifyDirectory();
    void closeToOthers(int directory);
    void readNotifications();
    void reportFromAnyThread(const Problem& problem);

    DeviceRoot root_;
    Companions companions_;
    PropertyListFiles files_;
    NotifyDirectory notify_;
    std::unique_ptr<DescriptorDriver> driver_;
    RunLoop runLoop_{*driver_};
    bool isWatching_ = false;
    bool hasReportedOpenToOthers_ = false;
    std::thread::id thread_ = std::this_thread::get_id();
    DesktopIcons desktopIcons_;
    ServiceLibrary<DesktopServices> desktop_;
    ServiceLibrary<RequestSender> sender_;
    /// Destroyed first, since its threads use all of the above.
    AccountService accounts_;
};

} // namespace prismo
