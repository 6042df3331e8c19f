#include "platform/linux/DeviceRootPath.h"

#include "platform/linux/DeviceRoot.h"

#include <cstdlib>
#include <stdexcept>
#include <sys/stat.h>

namespace prismo {

namespace {

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

} // namespace

DeviceRootPath DeviceRootPath::choose(const std::string& option) {
    if (!option.empty()) return {option, false};
    if (auto root = environment("PRISMO2_ROOT"); !root.empty()) return {std::move(root), false};
    auto data = environment("XDG_DATA_HOME");
    if (!data.starts_with('/')) { // a relative one is to be ignored, as the base directory rules say
        const auto home = environment("HOME");
        if (home.empty())
            throw std::runtime_error("no device root: neither --root, $PRISMO2_ROOT nor $HOME is set");
        data = home + "/.local/share";
    }
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
