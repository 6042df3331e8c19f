#pragma once

#include "platform/preferences/PSSpecifier.h"

#include <memory>
#include <string>

namespace prismo {

/// The last row of a page: an empty group whose footer tells the copyright, with its years from `startYear`
/// (four digits) to the current one in UTC, and the version of a package as the package database reports it.
/// Asks the database, through a shell, at every call, and waits for its answer; without one the version is
/// empty.
std::shared_ptr<PSSpecifier> FBVersionCopyrightSpecifier(const std::string& packageIdentifier,
                                                         const std::string& copyrightHolder,
                                                         const std::string& startYear);

} // namespace prismo
