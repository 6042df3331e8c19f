#pragma once

#include "cli/host/Host.h"

#include <CLI/App.hpp>
#include <memory>
#include <span>
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

/// One command of `prismo2`: declares its arguments, then runs.
class Command {
  public:
    virtual ~Command() = default;
    virtual void declare(CLI::App& app) = 0;
    /// What the command asks of the world beside files; by default nothing, which keeps it quick.
    virtual Host::Companions companions() const { return Host::Companions::none; }
    virtual Host::Clock clock() const { return Host::Clock::monotonic; }
    virtual Exit run(Host& host) = 0;
};

struct CommandEntry {
    const char* name;
    const char* summary;
    std::unique_ptr<Command> (*make)();
};

/// All commands, in the order of the help.
std::span<const CommandEntry> commands();

std::unique_ptr<Command> makeApps();
std::unique_ptr<Command> makeClearCache();
std::unique_ptr<Command> makeColor();
std::unique_ptr<Command> makeDrive();
std::unique_ptr<Command> makeGet();
std::unique_ptr<Command> makePackage();
std::unique_ptr<Command> makePost();
std::unique_ptr<Command> makeRespring();
std::unique_ptr<Command> makeRows();
std::unique_ptr<Command> makeSet();
std::unique_ptr<Command> makeStore();
std::unique_ptr<Command> makeType();
std::unique_ptr<Command> makeWatch();

} // namespace prismo::cli
