#pragma once

#include "cli/host/DryRunDevice.h"
#include "cli/output/Results.h"

#include "platform/foundation/Device.h"
#include "platform/foundation/EffectLog.h"
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
    /// "" for the default.
    std::string root;
    /// In application scope; "" for none chosen.
    std::optional<std::string> app;
    bool json = false;
    bool dryRun = false;
};

/// What a command runs on: the device, made the current one, and where its results and complaints go.
class Host {
  public:
    using Companions = Device::Companions;

    using Clock = LinuxDevice::Clock;

    /// Throws std::system_error where the device root cannot be used.
    Host(const Options& options, Companions companions, Clock clock);

    Device& device() { return *device_; }
    const Options& options() const { return options_; }

    /// The module's root page in the scope of `--app`, its rows not yet built.
    std::shared_ptr<Prismo2PrefsListController> makePage();

    /// The device of a dry run. Throws CommandError (wrong usage) in a real one.
    MemoryDevice& memoryDevice();
    /// What reached the outside, since the last `takeEffects`.
    std::vector<Effect> effects() const { return effects_->effects(); }
    std::vector<Effect> takeEffects() { return effects_->take(); }

    /// Throws the first problem that a file has made up to now, with exit 1. A malformed file that was
    /// replaced is none: its bytes are kept.
    void throwOnProblem() const;

    /// From now on each problem is told on standard error when it comes, and each time: for a command that
    /// goes on.
    void tellProblemsAtOnce() { tellsAtOnce_ = true; }

    /// Results, for standard output. In a dry run a JSON document gets the "effects" too. Throw CommandError
    /// where they cannot be written.
    void print(const std::string& text);
    void printJson(nlohmann::ordered_json document);
    /// They go to a terminal that shows colours, and nobody asked for none.
    bool showsColors() const;

    /// Prints what is left to tell: in a dry run the effects, and on standard error the problems. Returns the
    /// exit code: `exit`, or that of a failure where this would be a success.
    int finish(int exit);
    /// In place of `finish`, where a command ends with `complaint`: prints what that leaves to tell.
    void tellProblemsBeside(const std::string& complaint) const;

  private:
    void keep(const FileProblem& problem);
    bool isFatal(const FileProblem& problem) const;
    /// It is malformed, and what became of it is a problem of its own.
    bool isToldWithAnother(const FileProblem& problem) const;
    static void tell(const FileProblem& problem);

    Options options_;
    Results results_;
    std::optional<LinuxDevice> linux_;
    std::unique_ptr<PollDriver> driver_;
    std::optional<DryRunDevice> memory_; // whose loop goes by the driver
    Device* device_;
    std::optional<Device::Current> current_;
    std::optional<EffectLog> effects_;
    std::vector<FileProblem> problems_;
    bool tellsAtOnce_ = false;
    bool hasToldFatal_ = false;
};

} // namespace prismo::cli
