#include "platform/local/installation/OwnInstallation.h"

#include "platform/local/installation/RunningProgram.h"

namespace prismo {

std::filesystem::path ownInstallation(std::string& cause) {
    std::error_code error;
    const auto program = runningProgram(error);
    const auto prefix = program.parent_path().parent_path();
    const auto permissions = error ? std::filesystem::perms::none : status(prefix, error).permissions();
    if (error)
        cause = error.message();
    else if ((permissions & std::filesystem::perms::others_write) != std::filesystem::perms::none)
        cause = "Everybody can write to " + prefix.string();
    else
        return program.parent_path();
    return {};
}

} // namespace prismo
