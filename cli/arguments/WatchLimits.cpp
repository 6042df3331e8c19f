#include "cli/arguments/WatchLimits.h"

#include "platform/text/Number.h"

#include <cmath>
#include <memory>
#include <string>

namespace prismo::cli {

namespace {

// What is wrong with an option's value, or "".

std::string refuseOtherThanCount(const std::string& text) {
    return numberFromText<long>(text).value_or(0) >= 1
               ? ""
               : "'" + text + "' is not a number of lines, at least 1";
}

std::string refuseOtherThanSeconds(const std::string& text) {
    constexpr double longest = 1e9;
    const auto seconds = numberFromText<double>(text);
    return seconds && *seconds >= 0 && *seconds <= longest
               ? ""
               : "'" + text + "' is not a number of seconds from 0 to 1000000000";
}

} // namespace

void WatchLimits::declare(CLI::App& app) {
    app.add_option("--count", lines_, "end after N lines")->check(refuseOtherThanCount)->option_text("N");
    app.add_option("--timeout", seconds_, "end after S seconds")
        ->check(refuseOtherThanSeconds)
        ->option_text("S");
}

void WatchLimits::run(RunLoop& loop) {
    // Shared, since the timer stays on the loop if --count ends the run.
    const auto timedOut = std::make_shared<bool>(false);
    if (std::isfinite(seconds_)) loop.schedule(Seconds(seconds_), [timedOut] { *timedOut = true; });
    loop.runUntil([&] { return *timedOut || counted_ >= lines_; });
}

} // namespace prismo::cli
