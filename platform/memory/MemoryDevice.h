#pragma once

#include "platform/foundation/Device.h"
#include "platform/memory/VirtualTimeDriver.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <variant>
#include <vector>

namespace prismo {

/// A device in memory: nothing that it does reaches the outside world. Its time is virtual, it has only what
/// was put into it, and it fails only when asked to.
class MemoryDevice : public Device {
  public:
    /// An empty device in the year 2026, in virtual time.
    MemoryDevice();
    /// A copy of `original`: reads a file there until this device has written the file itself. Null makes an
    /// empty device. Its run loop uses `driver`. Both must outlive this.
    MemoryDevice(Device* original, RunLoop::Driver& driver);

    RunLoop& runLoop() override { return runLoop_; }
    std::chrono::system_clock::time_point wallClock() override;
    std::optional<Dictionary> readPropertyList(const std::string& path) override;
    std::optional<Data> readFile(const std::string& path) override;
    /// Calls the completion on the run loop.
    void requestAccountAccess(std::function<void(bool granted)> completion) override;
    std::vector<Account> accounts() override { return accounts_; }

    // What the device has

    /// Sets the current date. From there it advances with the run loop's time.
    void setWallClock(std::chrono::system_clock::time_point date);
    void setPropertyList(const std::string& path, Dictionary dictionary) {
        files_[path] = std::move(dictionary);
    }
    /// A file with any content. It does not read as a dictionary.
    void setFile(const std::string& path, Data bytes) { files_[path] = std::move(bytes); }
    void setApplications(std::vector<InstalledApplication> applications);
    /// What a task writes to its standard output. By default, tasks write nothing.
    void setTaskOutput(
        std::function<std::string(const std::string& executable, const std::vector<std::string>& arguments)>
            output) {
        taskOutput_ = std::move(output);
    }
    /// The link schemes, without ":", that something on the device can open.
    void setLinkSchemes(std::set<std::string> schemes) { linkSchemes_ = std::move(schemes); }
    enum class AccountAccess { granted, refused };
    void setAccounts(AccountAccess access, std::vector<Account> accounts);

    // Failures, until they are switched off

    /// Every read of the file fails with that cause. "" switches it off.
    void failReads(const std::string& path, std::string cause) { readFailures_[path] = std::move(cause); }
    void failWrites(const std::string& path, std::string cause) { writeFailures_[path] = std::move(cause); }
    /// No notification reaches anybody.
    void failPosts(bool fail) { postsFail_ = fail; }
    /// No task starts.
    void failTasks(bool fail) { tasksFail_ = fail; }
    /// Every spawn fails with that error number. 0 switches it off.
    void failSpawns(int error) { spawnError_ = error; }

    /// How often the file was read as a property list.
    int propertyListReads(const std::string& path) const;

  protected:
    Result<> write(const std::string& path, const Dictionary& dictionary, WriteMode mode) override;
    Result<> post(const std::string& name) override;
    Result<> observe(const std::string& name) override;
    Result<std::string> run(const std::string& executable,
                            const std::vector<std::string>& arguments) override;
    int start(const std::string& executable, const std::vector<std::string>& arguments,
              const std::vector<std::string>& environment) override;
    std::vector<InstalledApplication> listApplications() override;
    bool canOpen(const std::string& url) override;
    bool open(const std::string& url) override { return canOpen(url); }
    /// Answers every request with success, on the run loop.
    void send(const AccountRequest& request, std::function<void(int status)> completion) override;

  private:
    /// Reports the failure if there is one.
    bool failsToRead(const std::string& path);

    VirtualTimeDriver virtualTime_;
    RunLoop runLoop_;
    Device* original_ = nullptr;
    std::chrono::system_clock::time_point startDate_;
    std::map<std::string, std::variant<Dictionary, Data>> files_;
    std::map<std::string, std::string> readFailures_;
    std::map<std::string, std::string> writeFailures_;
    bool postsFail_ = false;
    bool tasksFail_ = false;
    int spawnError_ = 0;
    std::vector<InstalledApplication> applicationList_;
    std::function<std::string(const std::string&, const std::vector<std::string>&)> taskOutput_;
    std::set<std::string> linkSchemes_;
    AccountAccess accountAccess_ = AccountAccess::refused;
    std::vector<Account> accounts_;
    std::set<std::string> observed_;
    std::set<std::string> pending_;
    std::map<std::string, int> propertyListReads_;
};

} // namespace prismo
