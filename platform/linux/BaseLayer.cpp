#include "platform/linux/BaseLayer.h"

#include <filesystem>

namespace prismo {

std::string baseLayerDirectory() {
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    return (program.parent_path() / PRISMO_BASE_LAYER).lexically_normal();
}

} // namespace prismo
