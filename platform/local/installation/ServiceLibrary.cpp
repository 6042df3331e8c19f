#include "platform/local/installation/ServiceLibrary.h"

#include "platform/local/installation/OwnInstallation.h"

#include <cerrno>
#include <cstring>
#include <dlfcn.h>
#include <filesystem>
#include <unistd.h>

namespace prismo {

namespace {

/// The directory of the running program's services; empty, with `cause` set, where it has none.
std::filesystem::path serviceDirectory(std::string& cause) {
    const auto program = ownInstallation(cause);
    return program.empty() ? program : (program / PRISMO_SERVICES).lexically_normal();
}

std::string loaderProblem(const std::string& path) {
    const char* text = ::dlerror();
    std::string problem = text ? text : "";
    if (problem.starts_with(path + ": ")) problem.erase(0, path.size() + 2);
    return problem;
}

} // namespace

void* findServiceMaker(const std::string& service, const char* maker, std::string& path, std::string& cause) {
    const auto name = "libprismo2-" + service + ".so";
    const auto directory = serviceDirectory(cause);
    path = directory / name;
    if (directory.empty()) return nullptr;
    if (::access(path.c_str(), R_OK) != 0) {
        cause = std::strerror(errno);
        return nullptr;
    }
    // The libraries that it brings keep threads and exit handlers: it is never closed.
    void* library = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    void* found = library ? ::dlsym(library, maker) : nullptr;
    if (!found) cause = loaderProblem(path);
    return found;
}

} // namespace prismo
