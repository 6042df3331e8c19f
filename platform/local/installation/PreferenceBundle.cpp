#include "platform/local/installation/PreferenceBundle.h"

#include "platform/foundation/Class.h"
#include "platform/local/descriptors/FileBytes.h"
#include "platform/local/installation/BaseLayer.h"
#include "platform/local/installation/OwnInstallation.h"
#include "platform/plist/PropertyListGuard.h"
#include "platform/plist/PropertyListReader.h"

#include <cerrno>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <stdexcept>

namespace prismo {

namespace {

[[noreturn]] void fail(const std::string& file, const std::string& cause) {
    throw std::runtime_error(file + ": " + cause);
}

std::string bundleDirectory(std::string_view name) {
    const auto path = preferenceBundlePath(name);
    if (!path) throw std::runtime_error("no bundle can be named '" + std::string(name) + "'");
    auto directory = baseLayerDirectory() + *path;
    std::string cause;
    if (ownInstallation(cause).empty()) fail(directory, cause);
    return directory;
}

Dictionary readInfo(const std::string& path) {
    const UniqueFd file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    const auto bytes = file ? readAll(file.get(), maximumPropertyListSize) : std::nullopt;
    if (!bytes) fail(path, std::strerror(errno));
    auto info = readDictionary(*bytes);
    if (!info) fail(path, "not a property list");
    return *std::move(info);
}

std::string nameIn(const Dictionary& info, const std::string& key, const std::string& infoPath) {
    const auto& name = valueForKey(info, key).text();
    if (name.empty() || name.find('/') != std::string::npos) fail(infoPath, "names no " + key);
    return name;
}

void registerClassesOf(const std::string& executable) {
    // Its classes are known by name from now on, so it stays.
    void* library = ::dlopen(executable.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (!library) throw std::runtime_error(::dlerror()); // which names the file
    auto* registerClasses = reinterpret_cast<void (*)()>(::dlsym(library, "registerBundleClasses"));
    if (!registerClasses) fail(executable, "not a settings bundle");
    registerClasses();
}

} // namespace

std::optional<std::string> preferenceBundlePath(std::string_view name) {
    if (!isPlainName(name)) return std::nullopt;
    return "/Library/PreferenceBundles/" + std::string(name) + ".bundle/";
}

bool isPlainName(std::string_view name) {
    return !name.empty() && !name.starts_with('.') && name.find('/') == std::string_view::npos;
}

const Class& loadPreferenceBundle(std::string_view name) {
    const auto directory = bundleDirectory(name);
    const auto infoPath = directory + "Info.plist";
    const auto info = readInfo(infoPath);
    const auto executable = directory + nameIn(info, "CFBundleExecutable", infoPath);
    const auto principal = nameIn(info, "NSPrincipalClass", infoPath);
    registerClassesOf(executable);
    const auto* principalClass = NSClassFromString(principal);
    if (!principalClass) fail(executable, "has no class " + principal);
    return *principalClass;
}

} // namespace prismo
