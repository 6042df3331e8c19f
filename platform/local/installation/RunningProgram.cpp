#include "platform/local/installation/RunningProgram.h"

namespace prismo {

std::filesystem::path runningProgram(std::error_code& error) {
    return std::filesystem::read_symlink("/proc/self/exe", error);
}

} // namespace prismo
