#pragma once

#include "platform/foundation/Device.h"
#include "platform/linux/files/DeviceRoot.h"

#include <string_view>
#include <vector>

namespace prismo {

/// Can `text` be an application's display identifier?
bool isApplicationIdentifier(std::string_view text);

/// The applications in the device's file system: those of the system in "/Applications", those from a store
/// in "/var/containers/Bundle/Application/*". Left out are bundles without an identifier, those that hide
/// themselves, and all but the first of one identifier (the system's come first, then in the order of paths).
std::vector<InstalledApplication> findApplications(const DeviceRoot& root);

} // namespace prismo
