#pragma once

#include "platform/foundation/Result.h"

#include <string>

namespace prismo {

/// Which directory stands for the device.
class DeviceRootPath {
  public:
    /// `option` if it is not empty, else $PRISMO2_ROOT, else $XDG_DATA_HOME/prismo2/device. XDG_DATA_HOME
    /// defaults to ~/.local/share. Fails if none of them is set.
    static Result<DeviceRootPath> choose(const std::string& option);

    const std::string& path() const { return path_; }
    bool isDefault() const { return isDefault_; }
    bool exists() const;
    /// Makes the default root with the directories of an empty device. A root that was named must exist.
    Result<> makeIfDefault() const;

  private:
    DeviceRootPath(std::string path, bool isDefault) : path_(std::move(path)), isDefault_(isDefault) {}
    std::string path_;
    bool isDefault_;
};

} // namespace prismo
