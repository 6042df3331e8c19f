#pragma once

#include <functional>
#include <string>
#include <sys/types.h>

namespace prismo {

struct CommandResult {
    /// As the shell gives it.
    int status;
    std::string output;
};

/// Runs it in the shell, standard error joined to the output.
CommandResult shell(const std::string& command);

/// `text` as one word of the shell.
std::string quoted(const std::string& text);

/// Runs `body` in a child process and waits for it; true where it returned true.
bool inChild(const std::function<bool()>& body);

/// Runs `body` in a child process that may do no more than any user ("nobody" where this is root's process).
bool asNobody(const std::function<bool()>& body);

} // namespace prismo
