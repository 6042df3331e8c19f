#pragma once

#include <filesystem>
#include <string>

namespace prismo {

/// The directory of the running program, beside which the code that it loads is installed. Empty, with
/// `cause` set, where that cannot be told, or where everybody can write to the directory above it: what
/// stands in /tmp is nobody's installation.
std::filesystem::path ownInstallation(std::string& cause);

} // namespace prismo
