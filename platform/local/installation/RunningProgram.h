#pragma once

#include <filesystem>
#include <system_error>

namespace prismo {

/// The file of the running program, beside which the product's other files are. Empty, with `error` set,
/// where the system does not tell it.
std::filesystem::path runningProgram(std::error_code& error);

} // namespace prismo
