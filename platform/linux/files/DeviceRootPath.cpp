#include "platform/linux/files/DeviceRootPath.h"

#include "platform/linux/files/DeviceRoot.h"
#include "platform/local/installation/BaseDirectories.h"

#include <cstdlib>
#include <stdexcept>
#include <sys/stat.h>

namespace prismo {

DeviceRootPath DeviceRootPath::choose(const std::string& option) {
    if (!option.empty()) return {option, false};
    if (const char* root = std::getenv("PRISMO2_ROOT"); root && *root) return {root, false};
    const auto data = dataHome();
    if (data.empty())
        throw std::runtime_error(
            "no device root: neither --root, $PRISMO2_ROOT nor an absolute $HOME is set");
    return {data + "/prismo2/device", true};
}

bool DeviceRootPath::exists() const {
    struct stat status {};
    return stat(path_.c_str(), &status) == 0;
}

void DeviceRootPath::makeIfDefault() const {
    if (isDefault_ && !exists()) makeDefaultDeviceRoot(path_);
}

} // namespace prismo
