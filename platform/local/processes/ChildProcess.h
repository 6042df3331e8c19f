#pragma once

#include <optional>
#include <string>
#include <vector>

namespace prismo {

/// Runs the executable (a path, never searched for) with its own name and these arguments, in this process'
/// environment, with nothing to read on its standard input. What it complains of is dropped. Blocks until it
/// and all that it started have closed their standard output, and returns what they wrote there; nothing
/// where it cannot be started.
std::optional<std::string> runAndRead(const std::string& executable,
                                      const std::vector<std::string>& arguments);

/// Starts the executable (a path, never searched for) with exactly this argument vector and environment; all
/// else it inherits. 0, or the error number of the start. Nobody has to wait for the child.
int spawnDetached(const std::string& executable, const std::vector<std::string>& arguments,
                  const std::vector<std::string>& environment);

} // namespace prismo
