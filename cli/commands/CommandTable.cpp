#include "cli/commands/CommandTable.h"

namespace prismo::cli {

std::span<const CommandEntry> commands() {
    static constexpr CommandEntry all[] = {
        {"rows", "show the page's rows", makeRows},
        {"get", "print a setting", makeGet},
        {"set", "change a setting", makeSet},
        {"type", "show or choose an element's color type", makeType},
        {"color", "show or choose an element's color", makeColor},
        {"apps", "list the installed applications", makeApps},
        {"clear-cache", "forget the colors computed from application icons", makeClearCache},
        {"respring", "restart the user interface", makeRespring},
        {"package", "open the related package in the package manager", makePackage},
        {"watch", "print a line for every change", makeWatch},
        {"post", "post a notification", makePost},
        {"drive", "play a person's taps on the pages", makeDrive},
        {"store", "work on another preference domain", makeStore},
    };
    return all;
}

} // namespace prismo::cli
