#pragma once

#include "platform/foundation/Result.h"

#include <optional>
#include <string>
#include <string_view>

namespace prismo {

class Class;

/// The device's path, ending in "/", of the settings bundle with that name ("Prismo2Prefs"). Returns nullopt
/// if no bundle can have that name.
std::optional<std::string> preferenceBundlePath(std::string_view name);
/// Can a directory have an entry with that name that is not hidden? No path leads through such a name.
bool isPlainName(std::string_view name);

/// Loads the settings bundle with that name from the base layer, and returns the class that its Info.plist
/// names as the principal one. The program must export the framework classes, which a bundle does not bring
/// (`prismo_bundle_host` in its CMake file). A device root may have bundles too, but this never loads code
/// from there, nor if everybody can write to the directory above the program's. Fails (missingService),
/// naming the file and the cause, if the bundle cannot be loaded.
Result<const Class*> loadPreferenceBundle(std::string_view name);

} // namespace prismo
