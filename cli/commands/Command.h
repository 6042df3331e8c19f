#pragma once

#include "cli/host/Host.h"
#include "cli/output/CommandError.h"

#include <CLI/App.hpp>

namespace prismo::cli {

/// One command of `prismo2`: declares its arguments, then runs.
class Command {
  public:
    virtual ~Command() = default;
    virtual void declare(CLI::App& app) = 0;
    /// What the command needs from the world besides files; nothing by default, which keeps it fast.
    virtual Host::Companions companions() const { return Host::Companions::none; }
    virtual Host::Clock clock() const { return Host::Clock::monotonic; }
    virtual Exit run(Host& host) = 0;
};

} // namespace prismo::cli
