#include "platform/linux/files/DeviceRootPath.h"

#include "platform/linux/files/DeviceRoot.h"
#include "platform/local/installation/BaseDirectories.h"

#include <cstdlib>
#include <sys/stat.h>

namespace prismo {

Result<DeviceRootPath> DeviceRootPath::choose(const std::string& option) {
    if (!option.empty()) return DeviceRootPath(option, false);
    if (const char* root = std::getenv("PRISMO2_ROOT"); root && *root) return DeviceRootPath(root, false);
    const auto data = dataHome();
    if (data.empty())
        return Problem{Problem::Kind::missing, "",
                       "no device root: neither --root, $PRISMO2_ROOT nor an absolute $HOME is set"};
    return DeviceRootPath(data + "/prismo2/device", true);
}

bool DeviceRootPath::exists() const {
    struct stat status = {};
    return stat(path_.c_str(), &status) == 0;
}

Result<> DeviceRootPath::makeIfDefault() const {
    if (!isDefault_ || exists()) return Done{};
    return makeDefaultDeviceRoot(path_);
}

} // namespace prismo
