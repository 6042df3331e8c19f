#include "platform/local/installation/BaseDirectories.h"

#include <cstdlib>

namespace prismo {

namespace {

std::string absolutePath(const char* variable) {
    const char* value = std::getenv(variable);
    return value && *value == '/' ? value : "";
}

std::string homeFromVariable(const char* variable, const char* belowHome) {
    auto directory = absolutePath(variable);
    if (!directory.empty()) return directory;
    const auto home = absolutePath("HOME");
    return home.empty() ? home : home + belowHome;
}

} // namespace

std::string dataHome() { return homeFromVariable("XDG_DATA_HOME", "/.local/share"); }

std::string stateHome() { return homeFromVariable("XDG_STATE_HOME", "/.local/state"); }

std::string runtimeDirectory() { return absolutePath("XDG_RUNTIME_DIR"); }

} // namespace prismo
