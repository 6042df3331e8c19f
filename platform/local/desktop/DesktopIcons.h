#pragma once

#include "platform/foundation/Device.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace prismo {

/// Icon files of this machine, under paths of the device. Only the icons that the desktop's applications name
/// can be reached in this way, each under an invented path.
class DesktopIcons {
  public:
    /// From now on these are the icons. Changes each `iconPath` to the device's path.
    void adopt(std::vector<InstalledApplication>& applications);
    bool holds(const std::string& path) const { return files_.contains(path); }
    /// The bytes of the icon. Returns nullopt if `path` is not one of these or the file cannot be read: the
    /// row of an application does without its icon.
    std::optional<Data> read(const std::string& path) const;

  private:
    /// The device's path of each icon, and the file on this machine.
    std::map<std::string, std::string> files_;
};

} // namespace prismo
