#pragma once

#include "platform/foundation/Device.h"
#include "platform/linux/files/DeviceRoot.h"

#include <string_view>
#include <vector>

namespace prismo {

/// Can `text` be an application's display identifier?
bool isApplicationIdentifier(std::string_view text);

/// The applications in the device's file system: the system's in "/Applications", a store's in
/// "/var/containers/Bundle/Application/*". Leaves out bundles without an identifier, hidden ones, and all but
/// the first with the same identifier (the system's come first, then the order is that of paths).
std::vector<InstalledApplication> findApplications(const DeviceRoot& root);

} // namespace prismo
