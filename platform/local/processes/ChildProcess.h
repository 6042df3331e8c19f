#pragma once

#include "platform/foundation/Result.h"

#include <string>
#include <vector>

namespace prismo {

/// Runs the executable (a path, not searched for) with its own name and these arguments, in this process's
/// environment, with an empty standard input. Discards its standard error. Blocks until it and all its
/// children have closed their standard output, and returns what they wrote there. Fails as notStarted.
Result<std::string> runAndRead(const std::string& executable, const std::vector<std::string>& arguments);

/// Starts the executable (a path, not searched for) with exactly this argument vector and environment; it
/// inherits everything else. Returns 0, or the error number, as `Device::spawn` does. Nobody has to wait for
/// the child.
int spawnDetached(const std::string& executable, const std::vector<std::string>& arguments,
                  const std::vector<std::string>& environment);

} // namespace prismo
