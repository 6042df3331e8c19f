#pragma once

#include <QString>

namespace prismo::settings {

/// The INI file for the window's own state, or "" if the user has no state directory.
QString stateFile();

} // namespace prismo::settings
