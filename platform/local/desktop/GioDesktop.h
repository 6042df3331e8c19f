#pragma once

#include "platform/local/desktop/DesktopServices.h"

#include <string>
#include <vector>

namespace prismo {

/// The desktop as its freedesktop.org files describe it: desktop entries and default applications for link
/// schemes.
class GioDesktop : public DesktopServices {
  public:
    bool canOpen(const std::string& url) override;
    bool open(const std::string& url) override;
    std::vector<InstalledApplication> applications() override;
};

} // namespace prismo
