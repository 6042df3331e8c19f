#pragma once

#include "cli/commands/Command.h"

#include <memory>
#include <span>

namespace prismo::cli {

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
