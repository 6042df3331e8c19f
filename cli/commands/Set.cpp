#include "cli/commands/CommandTable.h"
#include "cli/output/Json.h"
#include "cli/pages/RowValue.h"

namespace prismo::cli {

namespace {

class Set : public Command {
    std::string key_;
    std::string value_;

    void declare(CLI::App& app) override {
        app.add_option("KEY", key_, "enabled, keyboard_color_type, keyboard_color …")->required();
        app.add_option("VALUE", value_, "true or false; a color type or its title; a color")->required();
    }

    Exit run(Host& host) override {
        const auto page = host.makePage();
        const auto row = rowForKey(*page, key_);
        writeThroughRow(*row, value_);
        host.throwOnProblem();
        if (host.options().json) host.printJson({{"key", key_}, {"value", json(shownValue(*row))}});
        return done;
    }
};

} // namespace

std::unique_ptr<Command> makeSet() { return std::make_unique<Set>(); }

} // namespace prismo::cli
