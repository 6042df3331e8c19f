#pragma once

#include <chrono>
#include <deque>
#include <string>
#include <sys/types.h>
#include <vector>

namespace prismo::settings {

/// Keeps the window's process running. If the process is killed, for example to restart the user interface,
/// the supervisor starts it again, unless it keeps dying. A process that aborts is not restarted. The
/// window's process ends with the supervisor, however that ends.
class Supervisor {
  public:
    struct Command {
        /// The program. Its file name becomes the process name.
        std::string path;
        std::vector<std::string> arguments;
        /// A descriptor that the program inherits, or -1.
        int inherited = -1;
    };
    explicit Supervisor(Command command);

    /// Returns the exit status once the window has exited, a signal to the supervisor has ended it, or it
    /// has died too often, which is reported on standard error.
    int run();

  private:
    void start();
    [[noreturn]] void becomeWindow(pid_t supervisor);
    /// Records a death and reports whether there were too many lately.
    bool keepsDying();

    Command command_;
    pid_t window_ = -1;
    std::deque<std::chrono::steady_clock::time_point> deaths_;
};

} // namespace prismo::settings
