#include "platform/local/installation/RunningProgram.h"

#include <system_error>

namespace prismo {

Result<std::filesystem::path> runningProgram() {
    constexpr const char* link = "/proc/self/exe";
    std::error_code error;
    auto program = std::filesystem::read_symlink(link, error);
    if (error) return Problem{Problem::Kind::missing, link, error.message()};
    return program;
}

} // namespace prismo
