#include "settings/options/Options.h"

#include "platform/text/Number.h"

namespace prismo::settings {

namespace {

constexpr const char* help =
    "Usage: prismo2-settings [--root DIR] [--style STYLE]\n"
    "Shows the settings pages of Prismo 2 in a window.\n"
    "\n"
    "Options:\n"
    "  --root DIR     the device root (default: $PRISMO2_ROOT, else $XDG_DATA_HOME/prismo2/device)\n"
    "  --style STYLE  light, dark or system (default: system)\n"
    "  -h, --help     print this help\n"
    "  --version      print the version\n";

std::string quoted(const std::string& text) { return "'" + text + "'"; }

int descriptor(const std::string& text) {
    const auto number = numberFromText<int>(text);
    if (!number || *number < 0) throw UsageError(quoted(text) + " is not a descriptor");
    return *number;
}

void set(Options& options, const std::string& name, const std::string& value) {
    if (name == "--root" && value.empty()) throw UsageError("the device root is empty");
    if (name == "--root") options.root = value;
    if (name == "--style" && value != "light" && value != "dark" && value != "system")
        throw UsageError(quoted(value) + " is not a style: use light, dark or system");
    if (name == "--style") options.style = value;
    if (name == "--requests") options.requests = descriptor(value);
}

} // namespace

Options parseOptions(const std::vector<std::string>& arguments) {
    Options options;
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        const auto equals = argument->find('=');
        const auto name = argument->substr(0, equals);
        const bool takesValue = name == "--root" || name == "--style" || name == "--requests";
        if (takesValue && equals != std::string::npos)
            set(options, name, argument->substr(equals + 1));
        else if (takesValue && argument + 1 == arguments.end())
            throw UsageError(name + " needs a value");
        else if (takesValue)
            set(options, name, *++argument);
        else if (*argument == "-h" || *argument == "--help")
            options.answer = help;
        else if (*argument == "--version")
            options.answer = "prismo2-settings " PRISMO_VERSION "\n";
        else
            throw UsageError((argument->starts_with('-') ? "unknown option " : "unexpected argument ") +
                             quoted(*argument));
    }
    return options;
}

} // namespace prismo::settings
