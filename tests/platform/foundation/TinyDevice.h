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
    void observe(const std::string& name) override { observed_.push_back(name); }
    void requestAccountAccess(std::function<void(bool)> completion) override { completion(false); }
    std::vector<Account> accounts() override { return {}; }

  protected:
    bool write(const std::string&, const Dictionary&, WriteMode) override { return true; }
    bool post(const std::string& name) override {
        posts.push_back(name);
        if (std::ranges::find(observed_, name) != observed_.end())
            loop_.perform([this, name] { systemCenter().deliver(name); });
        return true;
    }
    std::optional<std::string> run(const std::string&, const std::vector<std::string>&) override {
        return std::nullopt;
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
