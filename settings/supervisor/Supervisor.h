#pragma once

#include <chrono>
#include <deque>
#include <string>
#include <sys/types.h>
#include <vector>

namespace prismo::settings {

/// Keeps the window's process running: when that is killed, as by restarting the user interface, it is
/// started again, until it keeps dying. One that aborts is not. The process ends with this one, however this
/// one ends.
class Supervisor {
  public:
    struct Command {
        /// The program; its file name is what the process is known by.
        std::string path;
        std::vector<std::string> arguments;
        /// A descriptor that the program is to have; -1 for none.
        int inherited = -1;
    };
    explicit Supervisor(Command command);

    /// Returns the exit status for the whole, once the process has ended by itself, was ended by a signal to
    /// this one, or has died too often, which is said on the standard error.
    int run();

  private:
    void start();
    [[noreturn]] void becomeWindow(pid_t supervisor);
    /// Has it died so often lately that it would again?
    bool keepsDying();

    Command command_;
    pid_t window_ = -1;
    std::deque<std::chrono::steady_clock::time_point> deaths_;
};

} // namespace prismo::settings
