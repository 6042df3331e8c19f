#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace prismo::settings {

/// The command line, shared by the supervisor and the window that it starts.
struct Options {
    /// "" means the default device root.
    std::string root;
    /// "light", "dark", or "system" for the desktop's style.
    std::string style = "system";
    /// The socket that carries requests to raise the window, or -1. Only the supervisor passes it.
    int requests = -1;
    /// If not empty: print this and exit.
    std::string answer;
};

class UsageError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// `arguments` does not include the program name. Throws UsageError for bad arguments.
Options parseOptions(const std::vector<std::string>& arguments);

} // namespace prismo::settings
