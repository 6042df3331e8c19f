#pragma once

#include <string>

namespace prismo {

class Class;

/// Loads the settings bundle of that name ("Prismo2Prefs") from the base layer and returns the class that its
/// Info.plist names as its principal one. The program has to export the framework classes, which a bundle
/// does not bring (`prismo_bundle_host` in its CMake file). A device root may hold bundles too, but no code
/// is ever loaded from it, nor from beside a program that stands where everybody can write. Throws
/// std::runtime_error, naming the file and the cause, where it cannot be loaded.
const Class& loadPreferenceBundle(const std::string& name);

} // namespace prismo
