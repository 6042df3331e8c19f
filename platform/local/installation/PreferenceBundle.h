#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace prismo {

class Class;

/// The device's path, with "/" at its end, of the settings bundle of that name ("Prismo2Prefs"); nothing
/// where no bundle can be named so.
std::optional<std::string> preferenceBundlePath(std::string_view name);
/// Whether a directory can have an entry of that name that is not hidden: no path leads through it.
bool isPlainName(std::string_view name);

/// Loads the settings bundle of that name from the base layer and returns the class that its
/// Info.plist names as its principal one. The program has to export the framework classes, which a bundle
/// does not bring (`prismo_bundle_host` in its CMake file). A device root may hold bundles too, but no code
/// is ever loaded from it, nor from beside a program that stands where everybody can write. Throws
/// std::runtime_error, naming the file and the cause, where it cannot be loaded.
const Class& loadPreferenceBundle(std::string_view name);

} // namespace prismo
