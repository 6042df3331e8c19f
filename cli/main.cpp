#include "cli/arguments/Usage.h"
#include "cli/commands/CommandTable.h"

#include "platform/foundation/Trace.h"
#include "platform/text/Printable.h"

#include <algorithm>
#include <cerrno>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <cstdio>
#include <cstring>
#include <exception>
#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace prismo::cli {

namespace {

constexpr const char* generalOptions =
    "'prismo2 --help' lists the options that every command takes, such as --app ID and --json.";
constexpr const char* examples = R"(Examples:
  prismo2 rows                              the settings, system-wide
  prismo2 set enabled off                   turn coloring off
  prismo2 type keyboard custom              give the keyboard its own color
  prismo2 set keyboard_color 3366ff         … this one
  prismo2 --app com.example.app rows        the settings of one application
  prismo2 --app com.example.app set scope_enabled on
  prismo2 watch                             print a line for every change

Exit codes: 0 done, 1 failed, 2 wrong usage, 3 nothing there.)";

int complain(Exit exit, const std::string& message) {
    std::fprintf(stderr, "prismo2: %s\n", printable(message).c_str());
    return exit;
}

/// In place of the type of each argument, which is always text.
void explainArguments(CLI::App& command) {
    for (auto* argument : command.get_options([](const CLI::Option* each) { return each->get_positional(); }))
        argument->option_text(argument->get_required() ? "(required)" : "(optional)");
    for (auto* inner : command.get_subcommands([](const CLI::App*) { return true; }))
        explainArguments(*inner);
}

using Words = std::vector<std::string>;

int run(Command& command, const Options& options, const Words& words) {
    Host host(options, command.companions(), command.clock());
    const Trace::Step step(
        "command", [&] { return Trace::text(Array(words.begin(), words.end())); }, "prismo2");
    try {
        return host.finish(command.run(host));
    } catch (const std::runtime_error& error) {
        host.finishWithError(error.what());
        throw;
    }
}

void declareOptions(CLI::App& app, Options& options) {
    app.add_option("--root", options.root,
                   "the device root ($PRISMO2_ROOT, else $XDG_DATA_HOME/prismo2/device)")
        ->option_text("DIR")
        ->check([](const std::string& path) { return path.empty() ? "the device root is empty" : ""; });
    app.add_option("--app", options.app, "the settings of this application; \"\" if none is chosen")
        ->option_text("ID");
    app.add_flag("--json", options.json, "print one JSON document");
    app.add_flag("--dry-run", options.dryRun, "change nothing; report what would be done");
}

using Commands = std::map<const CLI::App*, std::unique_ptr<Command>>;

/// Declaring all commands takes longer than running most of them, so only the named ones are declared, except
/// for the help and if no command is named.
Commands declareCommands(CLI::App& app, const Words& words) {
    const auto isWord = [&](std::string_view word) { return std::ranges::find(words, word) != words.end(); };
    const bool declaresAll =
        isWord("--help") || isWord("-h") ||
        std::ranges::none_of(commands(), [&](const auto& entry) { return isWord(entry.name); });
    Commands declared;
    for (const auto& entry : commands()) {
        if (!declaresAll && !isWord(entry.name)) continue;
        auto* subcommand = app.add_subcommand(entry.name, entry.summary);
        subcommand->group("Commands");
        subcommand->footer(generalOptions);
        auto command = entry.make();
        command->declare(*subcommand);
        explainArguments(*subcommand);
        declared[subcommand] = std::move(command);
    }
    return declared;
}

/// The exit code, or nullopt if there is a command to run.
std::optional<int> parse(CLI::App& app, const Words& words) {
    try {
        app.parse(Words(words.rbegin(), words.rend())); // it expects them in reverse
        return std::nullopt;
    } catch (const CLI::Success& success) {
        const int exit = app.exit(success); // --help and --version
        if (!std::cout.flush())
            return complain(failed, std::string("standard output: ") + std::strerror(errno));
        return exit;
    } catch (const CLI::ParseError& error) {
        return complain(wrongUsage, usageProblem(app, words, error));
    }
}

int main(int argc, char** argv) {
    CLI::App app("The settings of Prismo 2 from a shell.", "prismo2");
    app.footer(examples);
    app.set_version_flag("--version", "prismo2 " PRISMO_VERSION);
    app.require_subcommand(1);
    app.get_formatter()->label("SUBCOMMAND", "COMMAND");
    app.fallthrough();
    Options options;
    declareOptions(app, options);
    const auto words = commandLineWords(argc, argv);
    const auto declared = declareCommands(app, words);
    if (const auto exit = parse(app, words)) return *exit;
    try {
        return run(*declared.at(app.get_subcommands().front()), options, words);
    } catch (const CommandError& error) {
        return complain(error.exit(), error.what());
    } catch (const std::runtime_error& error) {
        return complain(failed, error.what());
    }
}

} // namespace

} // namespace prismo::cli

int main(int argc, char** argv) { return prismo::cli::main(argc, argv); }
