#pragma once

#include "platform/foundation/Device.h"

#include <string>
#include <vector>

namespace prismo {

/// What the desktop of this machine lends to the device. It needs neither a display nor a bus. Callable from
/// every thread.
class DesktopServices {
  public:
    static constexpr const char* serviceName = "desktop";
    static constexpr const char* serviceMaker = "prismo2MakeDesktopServices";

    virtual ~DesktopServices() = default;

    /// Is there an application for links of this one's scheme? False for what is no link: without a scheme,
    /// with characters that a link has to escape, or longer than 65,536 bytes.
    virtual bool canOpen(const std::string& url) = 0;
    /// Starts that application with the link as one argument, without a shell, and goes on. False as
    /// `canOpen`, and where it could not be started.
    virtual bool open(const std::string& url) = 0;
    /// The applications that this desktop's menu shows. An icon is a PNG file of this machine.
    virtual std::vector<InstalledApplication> applications() = 0;
};

} // namespace prismo
