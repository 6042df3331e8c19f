#include "cli/arguments/NotificationName.h"
#include "cli/commands/CommandTable.h"

#include <nlohmann/json.hpp>

namespace prismo::cli {

namespace {

class Post : public Command {
    std::string name_;

    void declare(CLI::App& app) override {
        app.add_option("NAME", name_, "the notification's name: without '/', at most 255 bytes")->required();
    }

    Exit run(Host& host) override {
        requireNotificationName(name_);
        host.device().postNotification(name_);
        host.throwOnProblem();
        if (host.options().json) host.printJson({{"posted", name_}});
        return done;
    }
};

} // namespace

std::unique_ptr<Command> makePost() { return std::make_unique<Post>(); }

} // namespace prismo::cli
