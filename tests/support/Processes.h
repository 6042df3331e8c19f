#pragma once

#include <functional>
#include <string>
#include <sys/types.h>

namespace prismo {

struct CommandResult {
    /// The exit code as a shell reports it: 128 plus the number of the signal that ended the process.
    int status;
    std::string output;
};

/// Runs the command in a shell. The output includes standard error.
CommandResult shell(const std::string& command);

/// `text` quoted as a single shell word.
std::string quoted(const std::string& text);

/// Runs `body` in a child process and waits for it; returns what `body` returned.
bool inChild(const std::function<bool()>& body);

/// Like `inChild`, without privileges: if this process runs as root, the child becomes "nobody".
bool asNobody(const std::function<bool()>& body);

} // namespace prismo
