#pragma once

#include <string>

namespace prismo::cli {

/// Throws CommandError (wrong usage) if no notification can have that name.
void requireNotificationName(const std::string& name);

} // namespace prismo::cli
