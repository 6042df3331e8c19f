#pragma once

#include "platform/foundation/Device.h"
#include "tests/platform/foundation/VirtualDriver.h"

#include <algorithm>

namespace prismo {

/// A device of this process alone, without files, whose posts come back on the next turn of its loop.
class TinyDevice : public Device {
  public:
    VirtualDriver driver;
    std::vector<std::string> posts;

    RunLoop& runLoop() override { return loop_; }
    std::chrono::system_clock::time_point wallClock() override { return {}; }
    std::optional<Dictionary> readPropertyList(const std::string&) override { return std::nullopt; }
    std::optional<Data> readFile(const std::string&) override { return std::nullopt; }
    Result<> observe(const std::string& name) override {
        observed_.push_back(name);
        return Done{};
    }
    void requestAccountAccess(std::function<void(bool)> completion) override { completion(false); }
    std::vector<Account> accounts() override { return {}; }

  protected:
    Result<> write(const std::string&, const Dictionary&, WriteMode) override { return Done{}; }
    Result<> post(const std::string& name) override {
        posts.push_back(name);
        if (std::ranges::find(observed_, name) != observed_.end())
            loop_.perform([this, name] { systemCenter().deliver(name); });
        return Done{};
    }
    Result<std::string> run(const std::string& executable, const std::vector<std::string>&) override {
        return Problem{Problem::Kind::notStarted, executable, "There are no processes"};
    }
    int start(const std::string&, const std::vector<std::string>&, const std::vector<std::string>&) override {
        return 0;
    }
    std::vector<InstalledApplication> listApplications() override { return {}; }
    bool canOpen(const std::string&) override { return false; }
    bool open(const std::string&) override { return false; }
    void send(const AccountRequest&, std::function<void(int)> completion) override { completion(0); }

  private:
    RunLoop loop_{driver};
    std::vector<std::string> observed_;
};

} // namespace prismo
