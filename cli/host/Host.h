#pragma once

#include "cli/host/DryRunDevice.h"
#include "cli/output/Results.h"

#include "platform/foundation/Device.h"
#include "platform/foundation/EffectLog.h"
#include "platform/foundation/ProblemList.h"
#include "platform/linux/LinuxDevice.h"
#include "screens/root/Prismo2PrefsListController.h"

#include <memory>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <vector>

namespace prismo::cli {

/// The options that every command takes.
struct Options {
    /// "" for the default root.
    std::string root;
    /// If set, the scope is this application's; "" means application scope with no application chosen.
    std::optional<std::string> app;
    bool json = false;
    bool dryRun = false;
};

/// What a command runs on: the device, which this makes the current one, and the output for results and
/// problems.
class Host {
  public:
    using Companions = LinuxDevice::Companions;
    using Clock = LinuxDevice::Clock;

    /// Throws ProblemError if the device root cannot be used.
    Host(const Options& options, Companions companions, Clock clock);

    Device& device() { return *device_; }
    const Options& options() const { return options_; }

    /// The module's root page in the scope of `--app`. Its rows are not built yet.
    std::shared_ptr<Prismo2PrefsListController> makePage();

    /// The device of a dry run. Throws CommandError (wrong usage) in a real run.
    MemoryDevice& memoryDevice();
    /// What reached the outside world since the last `takeEffects`.
    std::vector<Effect> effects() const { return effects_->effects(); }
    std::vector<Effect> takeEffects() { return effects_->take(); }

    /// Throws a CommandError (failed) for the first problem so far that makes the command fail. A malformed
    /// file that was replaced does not, since its bytes are kept.
    void throwOnProblem() const;

    /// From now on, prints each problem to standard error whenever it occurs. For a command that keeps
    /// running.
    void printProblemsAtOnce() { printsAtOnce_ = true; }

    /// Results, for standard output. In a dry run, a JSON document also gets the "effects". Both throw
    /// CommandError if the output cannot be written.
    void print(const std::string& text);
    void printJson(nlohmann::ordered_json document);
    /// Does the output go to a terminal that shows colors, and has nobody turned them off?
    bool showsColors() const;

    /// Prints the rest: the effects of a dry run, and to standard error the problems. Returns `exit`, or the
    /// exit code of a failure if `exit` is a success and a problem makes the command fail.
    int finish(int exit);
    /// Use this instead of `finish` if the command ends with the error `message`: prints the problems that
    /// the message does not cover.
    void finishWithError(const std::string& message) const;

  private:
    void note(const Problem& problem);
    bool isFatal(const Problem& problem) const;
    static void printProblem(const Problem& problem);

    Options options_;
    Results results_;
    std::optional<LinuxDevice> linux_;
    std::unique_ptr<PollDriver> driver_;
    std::optional<DryRunDevice> memory_; // its run loop uses the driver
    Device* device_;
    std::optional<Device::Current> current_;
    std::optional<EffectLog> effects_;
    ProblemList problems_;
    bool printsAtOnce_ = false;
    bool hasPrintedFatal_ = false;
};

} // namespace prismo::cli
