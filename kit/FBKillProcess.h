#pragma once

#include <optional>
#include <string>

namespace prismo {

/// Sends a signal to every process with that name, through the system's own tool and without waiting.
/// `signal` is the text after the dash of the tool's option, "9" by default. Returns 0 if the tool was
/// started, or else the error number from starting it. It does not report whether any process was found.
int FBKillProcess(const std::optional<std::string>& signal, const std::optional<std::string>& processName);

} // namespace prismo
