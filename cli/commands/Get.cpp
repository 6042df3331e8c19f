#include "cli/commands/CommandTable.h"
#include "cli/output/Json.h"
#include "cli/output/ValueText.h"
#include "cli/pages/RowValue.h"

namespace prismo::cli {

namespace {

class Get : public Command {
    std::string key_;

    void declare(CLI::App& app) override {
        app.add_option("KEY", key_, "enabled, keyboard_color_type, keyboard_color …")->required();
    }

    Exit run(Host& host) override {
        const auto page = host.makePage();
        const auto value = shownValue(*rowForKey(*page, key_));
        if (host.options().json)
            host.printJson({{"key", key_}, {"value", json(value)}});
        else if (!value.isNothing())
            host.print(shownText(value) + "\n");
        host.throwOnProblem();
        return value.isNothing() ? nothingThere : done;
    }
};

} // namespace

std::unique_ptr<Command> makeGet() { return std::make_unique<Get>(); }

} // namespace prismo::cli
