#include "platform/local/installation/PreferenceBundle.h"

#include "platform/foundation/Class.h"
#include "platform/local/descriptors/FileBytes.h"
#include "platform/local/descriptors/SystemProblem.h"
#include "platform/local/installation/BaseLayer.h"
#include "platform/local/installation/OwnInstallation.h"
#include "platform/plist/PropertyListGuard.h"
#include "platform/plist/PropertyListReader.h"

#include <dlfcn.h>
#include <fcntl.h>

namespace prismo {

namespace {

Problem failure(const std::string& file, const std::string& cause) {
    return {Problem::Kind::missingService, file, cause};
}

Result<std::string> bundleDirectory(std::string_view name) {
    const auto path = preferenceBundlePath(name);
    if (!path) return failure("", "no bundle can be named '" + std::string(name) + "'");
    const auto base = baseLayerDirectory();
    if (!base) return base.problem();
    auto directory = base.value() + *path;
    const auto installation = ownInstallation();
    if (!installation) return failure(directory, installation.problem().cause);
    return directory;
}

Result<Dictionary> readInfo(const std::string& path) {
    const UniqueFd file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file) return systemProblem(Problem::Kind::missingService, path);
    const auto bytes = readAll(file.get(), maximumPropertyListSize, path);
    if (!bytes) return bytes.problem();
    auto info = parseDictionary(bytes.value(), path);
    if (!info) return failure(path, "not a property list");
    return info;
}

/// The text under `key`, which names a file or a class.
Result<std::string> nameIn(const Dictionary& info, const std::string& key, const std::string& infoPath) {
    const auto& name = valueForKey(info, key).text();
    if (name.empty() || name.find('/') != std::string::npos) return failure(infoPath, "names no " + key);
    return name;
}

Result<> registerClassesOf(const std::string& executable) {
    // It stays loaded, since its classes can be found by name from now on.
    void* library = ::dlopen(executable.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (!library) return failure("", ::dlerror()); // the text names the file
    auto* registerClasses = reinterpret_cast<void (*)()>(::dlsym(library, "registerBundleClasses"));
    if (!registerClasses) return failure(executable, "not a settings bundle");
    registerClasses();
    return Done{};
}

} // namespace

std::optional<std::string> preferenceBundlePath(std::string_view name) {
    if (!isPlainName(name)) return std::nullopt;
    return "/Library/PreferenceBundles/" + std::string(name) + ".bundle/";
}

bool isPlainName(std::string_view name) {
    return !name.empty() && !name.starts_with('.') && name.find('/') == std::string_view::npos;
}

Result<const Class*> loadPreferenceBundle(std::string_view name) {
    const auto directory = bundleDirectory(name);
    if (!directory) return directory.problem();
    const auto infoPath = directory.value() + "Info.plist";
    const auto info = readInfo(infoPath);
    if (!info) return info.problem().as(Problem::Kind::missingService);
    const auto executable = nameIn(info.value(), "CFBundleExecutable", infoPath);
    if (!executable) return executable.problem();
    const auto principal = nameIn(info.value(), "NSPrincipalClass", infoPath);
    if (!principal) return principal.problem();
    const auto file = directory.value() + executable.value();
    if (const auto registered = registerClassesOf(file); !registered) return registered.problem();
    const auto* principalClass = NSClassFromString(principal.value());
    if (!principalClass) return failure(file, "has no class " + principal.value());
    return principalClass;
}

} // namespace prismo
