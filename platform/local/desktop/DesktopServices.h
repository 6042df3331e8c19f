#pragma once

#include "platform/foundation/Device.h"

#include <string>
#include <vector>

namespace prismo {

/// What this machine's desktop offers to the device. Needs neither a display nor a bus. Callable from any
/// thread.
class DesktopServices {
  public:
    static constexpr const char* serviceName = "desktop";
    static constexpr const char* serviceMaker = "prismo2MakeDesktopServices";

    virtual ~DesktopServices() = default;

    /// Is there an application for links with this link's scheme? False if `url` is not a link: if it has no
    /// scheme, has characters that a link must escape, or is longer than 65,536 bytes.
    virtual bool canOpen(const std::string& url) = 0;
    /// Starts that application with the link as one argument, without a shell, and does not wait. Returns
    /// false if `canOpen` does, or if the application could not be started.
    virtual bool open(const std::string& url) = 0;
    /// The applications in this desktop's menu. An icon is a PNG file of this machine.
    virtual std::vector<InstalledApplication> applications() = 0;
};

} // namespace prismo
