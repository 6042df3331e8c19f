#pragma once

#include "platform/foundation/Problem.h"

#include <cerrno>
#include <cstring>
#include <string>
#include <utility>

namespace prismo {

/// The problem that errno describes after a failed system call.
inline Problem systemProblem(Problem::Kind kind, std::string path) {
    return {kind, std::move(path), std::strerror(errno)};
}

/// The same after a failed attempt to open or read `path`: `missing` if there is no such file or no directory
/// on the way to it, else `unreadable`.
inline Problem readProblem(std::string path) {
    const bool isMissing = errno == ENOENT || errno == ENOTDIR;
    return systemProblem(isMissing ? Problem::Kind::missing : Problem::Kind::unreadable, std::move(path));
}

} // namespace prismo
