#include "cli/arguments/Usage.h"

#include <algorithm>
#include <string_view>

namespace prismo::cli {

namespace {

/// The innermost command that the words name.
const CLI::App& namedCommand(const CLI::App& app) {
    const auto named = app.get_subcommands();
    return named.empty() ? app : namedCommand(*named.front());
}

bool lacksCommand(const CLI::App& command) {
    return command.get_require_subcommand_min() > 0 && command.get_subcommands().empty();
}

std::string quoted(const std::string& word) { return "'" + word + "'"; }

/// A complaint about the first word that nothing takes, or "".
std::string unexpectedWord(const CLI::App& app, const std::vector<std::string>& words) {
    const auto refused = app.remaining(true);
    const auto first = std::ranges::find_first_of(words, refused);
    if (first == words.end()) return {};
    const auto& command = namedCommand(app);
    const auto where = &command == &app ? "" : " of " + quoted(command.get_name());
    if (first->starts_with('-')) return "unknown option " + quoted(*first);
    if (lacksCommand(command)) return "unknown command " + quoted(*first) + where;
    return "unexpected argument " + quoted(*first);
}

} // namespace

std::vector<std::string> commandLineWords(int argc, const char* const* argv) {
    std::vector<std::string> words;
    bool hasOptions = true;
    for (int i = 1; i < argc; ++i) {
        std::string word = argv[i];
        hasOptions = hasOptions && word != "--";
        const bool isEmptied =
            hasOptions && word.starts_with("--") && word.size() > 3 && word.find('=') == word.size() - 1;
        if (isEmptied) word.pop_back();
        words.push_back(std::move(word));
        if (isEmptied) words.emplace_back();
    }
    return words;
}

std::string usageProblem(const CLI::App& app, const std::vector<std::string>& words,
                         const CLI::ParseError& error) {
    std::string text = error.what();
    const auto& command = namedCommand(app);
    const bool isRequired = dynamic_cast<const CLI::RequiredError*>(&error) != nullptr;
    if (isRequired || dynamic_cast<const CLI::ExtrasError*>(&error))
        if (auto unexpected = unexpectedWord(app, words); !unexpected.empty()) return unexpected;
    if (isRequired && lacksCommand(command))
        return &command == &app ? "a command is missing; 'prismo2 --help' lists them"
                                : "a command of " + quoted(command.get_name()) + " is missing; 'prismo2 " +
                                      command.get_name() + " --help' lists them";
    if (isRequired) return command.get_name() + ": " + text;
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error)) {
        const auto option = text.substr(0, text.find(':'));
        return text.ends_with(" missing") ? option + " needs a value" : option + " is given more than once";
    }
    return text;
}

} // namespace prismo::cli
