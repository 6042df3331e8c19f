#include "platform/local/installation/BaseLayer.h"

#include "platform/local/installation/RunningProgram.h"

namespace prismo {

Result<std::string> baseLayerDirectory() {
    // Without it, the path would be relative to the working directory.
    const auto program = runningProgram();
    if (!program) return program.problem();
    return (program.value().parent_path() / PRISMO_BASE_LAYER).lexically_normal().string();
}

} // namespace prismo
