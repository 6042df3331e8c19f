#include "cli/commands/CommandTable.h"

#include <cstring>
#include <nlohmann/json.hpp>

namespace prismo::cli {

namespace {

void tapButton(Host& host, const char* identifier) {
    const auto page = host.makePage();
    const auto row = page->specifierForID(identifier);
    if (!row) throw CommandError(nothingThere, "no such button in this scope");
    row->performButtonAction();
}

class ClearCache : public Command {
    void declare(CLI::App& /*app*/) override {}

    Exit run(Host& host) override {
        tapButton(host, "clearIconColorCache");
        host.throwOnProblem();
        if (host.options().json) host.printJson({{"cleared", true}});
        return done;
    }
};

class Respring : public Command {
    void declare(CLI::App& /*app*/) override {}

    Exit run(Host& host) override {
        const auto error = host.makePage()->performSelector("respring:").intValue();
        if (error != 0) throw CommandError(failed, std::string("/usr/bin/killall: ") + std::strerror(error));
        if (host.options().json) host.printJson({{"started", true}});
        return done;
    }
};

class Package : public Command {
    void declare(CLI::App& /*app*/) override {}

    Exit run(Host& host) override {
        tapButton(host, "splashtoner");
        const auto link = host.effects().back();
        // A dry run reports what it would open even if nothing opens it.
        if (!host.options().dryRun && !valueForKey(link.details, "accepted").boolValue())
            throw CommandError(failed, "nothing opens " + valueForKey(link.details, "url").text());
        if (host.options().json) host.printJson({{"opened", valueForKey(link.details, "url").text()}});
        return done;
    }
};

} // namespace

std::unique_ptr<Command> makeClearCache() { return std::make_unique<ClearCache>(); }
std::unique_ptr<Command> makeRespring() { return std::make_unique<Respring>(); }
std::unique_ptr<Command> makePackage() { return std::make_unique<Package>(); }

} // namespace prismo::cli
