#include "platform/local/installation/ServiceLibrary.h"

#include "platform/local/descriptors/SystemProblem.h"
#include "platform/local/installation/OwnInstallation.h"

#include <dlfcn.h>
#include <unistd.h>

namespace prismo {

namespace {

using Kind = Problem::Kind;

Problem loaderProblem(const std::string& path) {
    const char* text = ::dlerror();
    std::string cause = text ? text : "";
    if (cause.starts_with(path + ": ")) cause.erase(0, path.size() + 2);
    return {Kind::missingService, path, cause};
}

} // namespace

Result<ServiceMaker> findServiceMaker(const std::string& service, const char* maker) {
    const auto name = "libprismo2-" + service + ".so";
    const auto installation = ownInstallation();
    if (!installation) return Problem{Kind::missingService, name, installation.problem().cause};
    const std::string path = (installation.value() / PRISMO_SERVICES).lexically_normal() / name;
    if (::access(path.c_str(), R_OK) != 0) return systemProblem(Kind::missingService, path);
    // It is never closed, since the libraries that it brings keep threads and exit handlers.
    void* library = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    void* found = library ? ::dlsym(library, maker) : nullptr;
    if (!found) return loaderProblem(path);
    return ServiceMaker{path, found};
}

} // namespace prismo
