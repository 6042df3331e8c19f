#include "cli/commands/CommandTable.h"
#include "cli/drive/DriveSession.h"
#include "cli/drive/ScriptLine.h"
#include "cli/output/Json.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>

namespace prismo::cli {

namespace {

class Drive : public Command {
    std::string script_;
    bool virtualTime_ = false;

    void declare(CLI::App& app) override {
        app.add_option("SCRIPT", script_, "a file with one command per line; standard input if omitted");
        app.add_flag("--virtual-time", virtualTime_,
                     "the clock moves only by 'wait' and the module's own waits");
    }

    Host::Companions companions() const override { return Host::Companions::all; }
    Host::Clock clock() const override {
        return virtualTime_ ? Host::Clock::virtualTime : Host::Clock::monotonic;
    }

    Exit run(Host& host) override {
        std::ifstream file;
        if (!script_.empty()) {
            file.open(script_);
            if (!file) throw CommandError(failed, script_ + ": " + std::strerror(errno));
        }
        auto& input = script_.empty() ? std::cin : file;
        DriveSession session(host);
        Exit exit = done;
        std::string line;
        while (std::getline(input, line))
            exit = std::max(exit, play(host, session, line));
        if (input.bad())
            throw CommandError(failed, (script_.empty() ? "standard input" : script_) + ": cannot be read");
        host.takeEffects(); // a script asks for them with the line "effects"
        return exit;
    }

    /// Prints the answer to one line. The caller keeps the highest exit code.
    static Exit play(Host& host, DriveSession& session, const std::string& line) {
        nlohmann::ordered_json answer{{"ok", true}};
        Exit exit = done;
        try {
            const auto words = scriptWords(line);
            if (words.empty()) return done;
            answer.update(session.play(words));
        } catch (const CommandError& error) {
            answer = {{"ok", false}, {"error", error.what()}};
            exit = error.exit();
        }
        host.print(jsonText(answer) + "\n");
        return exit;
    }
};

} // namespace

std::unique_ptr<Command> makeDrive() { return std::make_unique<Drive>(); }

} // namespace prismo::cli
