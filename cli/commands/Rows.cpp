#include "cli/commands/CommandTable.h"
#include "cli/pages/PageJson.h"
#include "cli/pages/PageText.h"

namespace prismo::cli {

namespace {

class Rows : public Command {
    void declare(CLI::App& /*app*/) override {}

    Host::Companions companions() const override { return Host::Companions::page; }

    Exit run(Host& host) override {
        const auto page = host.makePage();
        page->viewWillAppear(false);
        if (host.options().json)
            host.printJson(json(*page));
        else
            host.print(pageText(*page, host.showsColors() ? Style::colors : Style::plain));
        // The page shows its defaults if it could not read the file.
        host.throwOnProblem();
        return done;
    }
};

} // namespace

std::unique_ptr<Command> makeRows() { return std::make_unique<Rows>(); }

} // namespace prismo::cli
