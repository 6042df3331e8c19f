#pragma once

#include "platform/foundation/Result.h"

#include <filesystem>

namespace prismo {

/// The directory of the running program. The code that it loads is installed relative to it. Fails
/// (missingService) if the directory is unknown, or if everybody can write to its parent: what is in /tmp is
/// not an installation.
Result<std::filesystem::path> ownInstallation();

} // namespace prismo
