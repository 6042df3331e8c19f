#pragma once

#include "tests/support/PipedProcess.h"

#include <csignal>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <vector>

namespace prismo {

/// A second process that observes names and prints a line for each delivery.
class Listener {
  public:
    /// Returns when it is listening.
    Listener(const std::filesystem::path& directory, const std::vector<std::string>& names,
             const std::filesystem::path& stateFile = "/dev/null")
        : process_(command(directory, names, stateFile)) {
        if (line() != "ready") throw std::runtime_error("the listener does not listen");
    }
    ~Listener() { goOn(); }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    /// The next line that it prints. Throws if none comes in time.
    std::string line() { return process_.line(); }
    /// Returns when it has stopped.
    void stop() {
        ::kill(process_.id(), SIGSTOP);
        ::waitpid(process_.id(), nullptr, WUNTRACED);
    }
    void goOn() { ::kill(process_.id(), SIGCONT); }

  private:
    static std::vector<std::string> command(const std::filesystem::path& directory,
                                            const std::vector<std::string>& names,
                                            const std::filesystem::path& stateFile) {
        std::vector<std::string> result{NOTIFY_LISTENER, directory, stateFile};
        result.insert(result.end(), names.begin(), names.end());
        return result;
    }

    PipedProcess process_;
};

} // namespace prismo
