#pragma once

#include <stdexcept>
#include <string>

namespace prismo::cli {

/// The command's exit codes.
enum Exit { done = 0, failed = 1, wrongUsage = 2, nothingThere = 3 };

/// Ends a command with that exit code and one line on standard error.
class CommandError : public std::runtime_error {
  public:
    CommandError(Exit exit, const std::string& message) : std::runtime_error(message), exit_(exit) {}
    Exit exit() const { return exit_; }

  private:
    Exit exit_;
};

} // namespace prismo::cli
