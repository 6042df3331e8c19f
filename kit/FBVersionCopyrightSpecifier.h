#pragma once

#include "platform/preferences/PSSpecifier.h"

#include <memory>
#include <string>

namespace prismo {

/// The last row of a page: an empty group whose footer shows the copyright and a package's installed version.
/// The years run from `startYear` (four digits) to the current year in UTC. Each call asks the package
/// database through a shell and waits for the answer; without one, the version is empty.
std::shared_ptr<PSSpecifier> FBVersionCopyrightSpecifier(const std::string& packageIdentifier,
                                                         const std::string& copyrightHolder,
                                                         const std::string& startYear);

} // namespace prismo
