#pragma once

#include "platform/linux/UniqueFd.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <spawn.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace prismo {

/// A second process that observes names and tells of each delivery in a line.
class Listener {
  public:
    /// Returns when it is listening.
    Listener(const std::filesystem::path& directory, const std::vector<std::string>& names,
             const std::filesystem::path& stateFile = "/dev/null") {
        std::vector<std::string> arguments{NOTIFY_LISTENER, directory, stateFile};
        arguments.insert(arguments.end(), names.begin(), names.end());
        std::vector<char*> argv;
        argv.reserve(arguments.size() + 1);
        for (auto& argument : arguments)
            argv.push_back(argument.data());
        argv.push_back(nullptr);

        auto [childInput, ownOutput] = pipe();
        auto [ownInput, childOutput] = pipe();
        posix_spawn_file_actions_t actions;
        ::posix_spawn_file_actions_init(&actions);
        ::posix_spawn_file_actions_adddup2(&actions, childInput.get(), STDIN_FILENO);
        ::posix_spawn_file_actions_adddup2(&actions, childOutput.get(), STDOUT_FILENO);
        const int error = ::posix_spawn(&process_, NOTIFY_LISTENER, &actions, nullptr, argv.data(), environ);
        ::posix_spawn_file_actions_destroy(&actions);
        if (error != 0) throw std::system_error(error, std::generic_category(), NOTIFY_LISTENER);
        input_ = std::move(ownInput);
        output_ = std::move(ownOutput);
        if (line() != "ready") throw std::runtime_error("the listener does not listen");
    }
    ~Listener() {
        goOn();
        output_.reset();
        input_.reset();
        ::waitpid(process_, nullptr, 0);
    }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    /// The next line that it prints. Throws where none comes in time.
    std::string line() {
        for (;;) {
            if (const auto end = read_.find('\n'); end != std::string::npos) {
                auto result = read_.substr(0, end);
                read_.erase(0, end + 1);
                return result;
            }
            constexpr int patience = 30'000;
            pollfd ready{input_.get(), POLLIN, 0};
            if (::poll(&ready, 1, patience) == 0) throw std::runtime_error("the listener is silent");
            std::array<char, 4096> buffer{};
            const auto size = ::read(input_.get(), buffer.data(), buffer.size());
            if (size == 0) throw std::runtime_error("the listener has ended");
            if (size > 0) read_.append(buffer.data(), static_cast<std::size_t>(size));
        }
    }
    /// Returns when it stands still.
    void stop() {
        ::kill(process_, SIGSTOP);
        ::waitpid(process_, nullptr, WUNTRACED);
    }
    void goOn() { ::kill(process_, SIGCONT); }

  private:
    struct Pipe {
        UniqueFd readEnd;
        UniqueFd writeEnd;
    };
    static Pipe pipe() {
        std::array<int, 2> ends{};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0)
            throw std::system_error(errno, std::generic_category(), "pipe");
        return {UniqueFd(ends[0]), UniqueFd(ends[1])};
    }

    pid_t process_ = -1;
    UniqueFd input_;
    UniqueFd output_;
    std::string read_;
};

} // namespace prismo
