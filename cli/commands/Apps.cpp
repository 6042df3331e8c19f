#include "cli/commands/CommandTable.h"

#include "platform/applist/ALApplicationTableDataSource.h"
#include "platform/text/Printable.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace prismo::cli {

namespace {

class Apps : public Command {
    void declare(CLI::App& /*app*/) override {}

    Host::Companions companions() const override { return Host::Companions::all; }

    Exit run(Host& host) override {
        const auto source = std::make_shared<ALApplicationTableDataSource>();
        source->setSectionDescriptors(ALApplicationTableDataSource::standardSectionDescriptors());
        host.throwOnProblem();
        if (host.options().json)
            printAsJson(host, *source);
        else
            printAsText(host, *source);
        return done;
    }

    static void printAsJson(Host& host, const ALApplicationTableDataSource& source) {
        auto sections = nlohmann::ordered_json::array();
        for (const auto& section : source.sections()) {
            auto applications = nlohmann::ordered_json::array();
            for (const auto& application : section.applications)
                applications.push_back(
                    {{"identifier", application.displayIdentifier}, {"name", application.displayName}});
            sections.push_back({{"title", section.title}, {"applications", std::move(applications)}});
        }
        host.printJson({{"sections", std::move(sections)}});
    }

    static void printAsText(Host& host, const ALApplicationTableDataSource& source) {
        std::size_t width = 0;
        for (const auto& section : source.sections())
            for (const auto& application : section.applications)
                width = std::max(width, columns(application.displayIdentifier));
        std::string text;
        for (const auto& section : source.sections()) {
            if (!text.empty()) text += "\n";
            text += section.title + "\n";
            for (const auto& application : section.applications) {
                const auto identifier = printable(application.displayIdentifier);
                text += "  " + identifier + std::string(width - std::min(width, columns(identifier)), ' ') +
                        "  " + printable(application.displayName) + "\n";
            }
        }
        host.print(text);
    }
};

} // namespace

std::unique_ptr<Command> makeApps() { return std::make_unique<Apps>(); }

} // namespace prismo::cli
