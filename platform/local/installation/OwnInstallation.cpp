#include "platform/local/installation/OwnInstallation.h"

#include "platform/local/installation/RunningProgram.h"

#include <system_error>

namespace prismo {

Result<std::filesystem::path> ownInstallation() {
    using std::filesystem::perms;
    const auto program = runningProgram();
    if (!program) return program.problem().as(Problem::Kind::missingService);
    const auto directory = program.value().parent_path();
    const auto prefix = directory.parent_path();
    std::error_code error;
    const auto permissions = status(prefix, error).permissions();
    if (error) return Problem{Problem::Kind::missingService, prefix, error.message()};
    if ((permissions & perms::others_write) != perms::none)
        return Problem{Problem::Kind::missingService, directory, "Everybody can write to " + prefix.string()};
    return directory;
}

} // namespace prismo
