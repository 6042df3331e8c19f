#pragma once

#include <QString>

namespace prismo::settings {

/// Where the window keeps what is its own, an ini file. "" where the person has no place for it.
QString stateFile();

} // namespace prismo::settings
