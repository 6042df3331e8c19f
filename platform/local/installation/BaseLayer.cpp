#include "platform/local/installation/BaseLayer.h"

#include "platform/local/installation/RunningProgram.h"

namespace prismo {

std::string baseLayerDirectory() {
    std::error_code error;
    const auto program = runningProgram(error);
    if (error) return {}; // not a place that goes with the working directory
    return (program.parent_path() / PRISMO_BASE_LAYER).lexically_normal();
}

} // namespace prismo
