#pragma once

#include "platform/linux/LinuxDevice.h"
#include "platform/memory/MemoryDevice.h"

#include <string>

namespace prismo::cli {

/// The copy in memory that a dry run works on. Before it does something in the original's place, the original
/// says whether it would do it itself, and its problems are those of the dry run.
class DryRunDevice : public MemoryDevice {
  public:
    /// A copy of `original`, null for an empty device, whose loop goes by `driver`; both outlive it.
    DryRunDevice(LinuxDevice* original, RunLoop::Driver& driver)
        : MemoryDevice(original, driver), original_(original) {}

  protected:
    bool write(const std::string& path, const Dictionary& dictionary, WriteMode mode) override;
    bool post(const std::string& name) override;
    void observe(const std::string& name) override;

  private:
    LinuxDevice* original_;
};

} // namespace prismo::cli
