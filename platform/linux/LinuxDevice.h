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
#include <string>
#include <thread>
#include <vector>

namespace prismo {

/// The device's path of the directory through which notifications pass: a problem with them is one of it.
inline constexpr const char* notifyDirectory = "/var/run/notify";

/// The device whose files are in a directory of this machine, its device root.
///
/// Notifications pass through the root's `notifyDirectory`, and so between all processes that work on it.
/// Children are this machine's processes; their paths are not the root's. Links are opened by this machine's
/// desktop, whose applications are also those of a root that holds none. What is missing for that, and for
/// requests, on this machine is a problem of the library that it takes.
///
/// Its end waits for the answers of the accounts service, and a few seconds for requests that are under way.
class LinuxDevice : public Device {
  public:
    using Clock = PollDriver::Clock;

    /// Throws std::system_error, naming the path, where it is no directory or cannot be opened.
    explicit LinuxDevice(const std::string& rootPath, Clock clock = Clock::monotonic);
    /// Its loop goes by the driver that `makeDriver` makes.
    using MakeDriver = std::function<std::unique_ptr<DescriptorDriver>()>;
    LinuxDevice(const std::string& rootPath, const MakeDriver& makeDriver);

    const DeviceRoot& root() const { return root_; }

    RunLoop& runLoop() override { return runLoop_; }
    std::chrono::system_clock::time_point wallClock() override { return std::chrono::system_clock::now(); }

    std::optional<Dictionary> readPropertyList(const std::string& path) override { return files_.read(path); }
    std::optional<Data> readFile(const std::string& path) override;

    void requestAccountAccess(std::function<void(bool granted)> completion) override;
    std::vector<Account> accounts() override { return accounts_.accounts(); }

    // What would be said where this was done, with nothing changed: false where it would fail.
    bool rehearseWrite(const std::string& path, const Dictionary& dictionary, WriteMode mode) {
        return files_.rehearseWrite(path, dictionary, mode);
    }
    bool rehearsePost(const std::string& name);
    bool rehearseObserve();

  protected:
    bool write(const std::string& path, const Dictionary& dictionary, WriteMode mode) override {
        return files_.write(path, dictionary, mode);
    }
    // Where these two fail, that is told as a problem of the notify directory.
    bool post(const std::string& name) override;
    void observe(const std::string& name) override;
    std::optional<std::string> run(const std::string& executable,
                                   const std::vector<std::string>& arguments) override;
    int start(const std::string& executable, const std::vector<std::string>& arguments,
              const std::vector<std::string>& environment) override;
    std::vector<InstalledApplication> listApplications() override;
    bool canOpen(const std::string& url) override;
    bool open(const std::string& url) override;
    void send(const AccountRequest& request, std::function<void(int status)> completion) override;

  private:
    /// What the root does not hold itself may be among the files that the product ships.
    std::optional<Data> readBaseLayer(const std::string& path);
    /// `completion`, until whose call a clock that only waiting moves stands still.
    template <typename Answer>
    std::function<void(Answer)> awaited(std::function<void(Answer)> completion);
    UniqueFd openNotifyDirectory();
    void closeToOthers(int directory);
    void readNotifications();
    void reportNotify(FileProblem::Kind kind, int error);
    void reportLibrary(const std::string& path, const std::string& cause);

    DeviceRoot root_;
    PropertyListFiles files_;
    NotifyDirectory notify_;
    std::unique_ptr<DescriptorDriver> driver_;
    RunLoop runLoop_{*driver_};
    bool isWatching_ = false;
    bool isOpenToOthersTold_ = false;
    std::thread::id thread_ = std::this_thread::get_id();
    DesktopIcons desktopIcons_;
    ServiceLibrary<DesktopServices> desktop_;
    ServiceLibrary<RequestSender> sender_;
    /// Goes first: its threads use all of the above.
    AccountService accounts_;
};

} // namespace prismo
