#pragma once

#include <CLI/App.hpp>
#include <string>
#include <vector>

namespace prismo::cli {

/// The words after the program's name. An empty value may be written either way: "--app=" becomes "--app" "".
std::vector<std::string> commandLineWords(int argc, const char* const* argv);

/// What is wrong with words that `app` refused with that error, in words for a person.
std::string usageProblem(const CLI::App& app, const std::vector<std::string>& words,
                         const CLI::ParseError& error);

} // namespace prismo::cli
