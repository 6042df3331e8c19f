#include "platform/linux/files/BaseLayerRoot.h"

#include "platform/local/installation/BaseLayer.h"

namespace prismo {

Result<DeviceRoot> openBaseLayer() {
    const auto directory = baseLayerDirectory();
    if (!directory) return directory.problem();
    return DeviceRoot::at(directory.value());
}

} // namespace prismo
