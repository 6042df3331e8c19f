#pragma once

#include <optional>
#include <string>

namespace prismo {

/// Sends a signal to every process of that name, through the system's own tool, and goes on without waiting.
/// `signal` is the text after the dash of the tool's option, "9" where there is none. 0 where the tool was
/// started, otherwise the error number of the start; whether a process was found is not told.
int FBKillProcess(const std::optional<std::string>& signal, const std::optional<std::string>& processName);

} // namespace prismo
