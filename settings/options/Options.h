#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace prismo::settings {

/// The command line of the program, for the supervisor and for the window that it starts.
struct Options {
    /// "" for the default device root.
    std::string root;
    /// "light", "dark", or "system" for the desktop's.
    std::string style = "system";
    /// The socket on which the window is asked to come to the front; -1 for none. Only the supervisor says
    /// it.
    int requests = -1;
    /// Print this and go, where it is not empty.
    std::string answer;
};

class UsageError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Without the name of the program. Throws UsageError for what it does not understand.
Options parseOptions(const std::vector<std::string>& arguments);

} // namespace prismo::settings
