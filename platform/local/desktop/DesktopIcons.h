#pragma once

#include "platform/foundation/Device.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace prismo {

/// Icon files of this machine under paths of the device. Only what an application of the desktop names is
/// reached in this way, under a path that is made up for it.
class DesktopIcons {
  public:
    /// From now on these are the icons; `iconPath` becomes the device's path.
    void adopt(std::vector<InstalledApplication>& applications);
    bool holds(const std::string& path) const { return files_.contains(path); }
    /// The icon's bytes; nothing where `path` is none of these or the file cannot be read.
    std::optional<Data> read(const std::string& path) const;

  private:
    /// The files of this machine by the device's paths.
    std::map<std::string, std::string> files_;
};

} // namespace prismo
