#include "settings/StateFile.h"

namespace prismo::settings {

QString stateFile() {
    auto directory = qEnvironmentVariable("XDG_STATE_HOME");
    if (!directory.startsWith('/')) {
        const auto home = qEnvironmentVariable("HOME");
        if (home.isEmpty()) return {};
        directory = home + "/.local/state";
    }
    return directory + "/prismo2/settings.ini";
}

} // namespace prismo::settings
