#include "cli/arguments/NotificationName.h"

#include "cli/output/CommandError.h"

#include "platform/foundation/Device.h"

namespace prismo::cli {

void requireNotificationName(const std::string& name) {
    if (!isNotificationName(name))
        throw CommandError(wrongUsage, "'" + name + "' is not a notification name");
}

} // namespace prismo::cli
