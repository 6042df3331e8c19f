#include "settings/window/StateFile.h"

#include "platform/local/installation/BaseDirectories.h"

namespace prismo::settings {

QString stateFile() {
    const auto directory = stateHome();
    return directory.empty() ? QString() : QString::fromLocal8Bit(directory + "/prismo2/settings.ini");
}

} // namespace prismo::settings
