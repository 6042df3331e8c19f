#include "cli/arguments/NotificationName.h"
#include "cli/arguments/WatchLimits.h"
#include "cli/commands/CommandTable.h"
#include "prefs/SettingsFile.h"

#include "platform/text/Printable.h"

#include <nlohmann/json.hpp>
#include <set>

namespace prismo::cli {

namespace {

/// Counts and prints the deliveries of one name.
class Listener : public NSObject {
  public:
    Listener(Host& host, std::string name, WatchLimits& limits)
        : host_(host), name_(std::move(name)), limits_(limits) {}

    static void notified(const std::shared_ptr<NSObject>& observer) {
        auto& self = dynamic_cast<Listener&>(*observer);
        if (self.host_.options().json)
            self.host_.printJson({{"name", self.name_}});
        else
            self.host_.print(printable(self.name_) + "\n");
        self.limits_.count();
    }

  private:
    Host& host_;
    std::string name_;
    WatchLimits& limits_;
};

class Watch : public Command {
    std::vector<std::string> names_;
    WatchLimits limits_;

    void declare(CLI::App& app) override {
        app.add_option("NAME", names_, "notifications to watch (" + std::string(changeNotification) + ")");
        limits_.declare(app);
    }

    Host::Companions companions() const override { return Host::Companions::all; }

    Exit run(Host& host) override {
        if (names_.empty()) names_ = {changeNotification};
        std::vector<std::shared_ptr<Listener>> listeners;
        for (const auto& name : std::set(names_.begin(), names_.end())) {
            requireNotificationName(name);
            listeners.push_back(std::make_shared<Listener>(host, name, limits_));
            host.device().systemCenter().addObserver(listeners.back(), &Listener::notified, name,
                                                     SuspensionBehavior::coalesce);
        }
        host.throwOnProblem();
        host.printProblemsAtOnce();
        limits_.run(host.device().runLoop());
        return done;
    }
};

} // namespace

std::unique_ptr<Command> makeWatch() { return std::make_unique<Watch>(); }

} // namespace prismo::cli
