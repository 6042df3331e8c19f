#include "kit/FBKillProcess.h"

#include "platform/foundation/Device.h"
#include "platform/text/Text.h"

#include <vector>

namespace prismo {

int FBKillProcess(const std::optional<std::string>& signal, const std::optional<std::string>& processName) {
    std::vector<std::string> arguments{"killall", formatted("-%@", {signal.value_or("9")})};
    // Without a name, the tool kills nothing.
    if (processName) arguments.push_back(*processName);
    return Device::current().spawn("/usr/bin/killall", arguments, {});
}

} // namespace prismo
