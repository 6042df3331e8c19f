#pragma once

#include "platform/foundation/RunLoop.h"

#include <CLI/App.hpp>
#include <limits>

namespace prismo::cli {

/// When a watching command ends: after --count lines or --timeout seconds, otherwise never.
class WatchLimits {
  public:
    void declare(CLI::App& app);
    /// Counts one more line.
    void count() { ++counted_; }
    /// Runs the loop until a limit is reached.
    void run(RunLoop& loop);

  private:
    long lines_ = std::numeric_limits<long>::max();
    double seconds_ = std::numeric_limits<double>::infinity();
    long counted_ = 0;
};

} // namespace prismo::cli
