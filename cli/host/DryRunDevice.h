#pragma once

#include "platform/linux/LinuxDevice.h"
#include "platform/memory/MemoryDevice.h"

#include <string>
#include <vector>

namespace prismo::cli {

/// The copy in memory that a dry run works on. Before it does something, it asks the original whether the
/// real operation would succeed, so a dry run reports the same problems.
class DryRunDevice : public MemoryDevice {
  public:
    using Companions = LinuxDevice::Companions;

    /// A copy of `original`, or an empty device if that is null. Its run loop uses `driver`. Both must
    /// outlive this. `companions` are those of the original.
    DryRunDevice(LinuxDevice* original, RunLoop::Driver& driver, Companions companions)
        : MemoryDevice(original, driver), original_(original), companions_(companions) {}

  protected:
    Result<> write(const std::string& path, const Dictionary& dictionary, WriteMode mode) override;
    Result<> post(const std::string& name) override;
    Result<> observe(const std::string& name) override;
    Result<std::string> run(const std::string& executable,
                            const std::vector<std::string>& arguments) override;

  private:
    LinuxDevice* original_;
    Companions companions_;
};

} // namespace prismo::cli
