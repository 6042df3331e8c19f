#pragma once

#include <CLI/App.hpp>
#include <string>
#include <vector>

namespace prismo::cli {

/// The words after the program's name. A value may be empty in both spellings: "--app=" becomes "--app" "".
std::vector<std::string> commandLineWords(int argc, const char* const* argv);

/// What is wrong with the words that `app` has refused with that error, for a person.
std::string usageProblem(const CLI::App& app, const std::vector<std::string>& words,
                         const CLI::ParseError& error);

} // namespace prismo::cli
