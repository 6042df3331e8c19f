#pragma once

#include "platform/foundation/Result.h"

#include <filesystem>

namespace prismo {

/// The file of the running program. The product's other files are found from there. Fails if the system does
/// not know it.
Result<std::filesystem::path> runningProgram();

} // namespace prismo
