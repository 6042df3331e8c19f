#pragma once

#include "platform/local/descriptors/UniqueFd.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

namespace prismo {

/// A second process that reports what it does in lines and runs until its standard input ends.
class PipedProcess {
  public:
    /// Starts an executable, given its path and its arguments.
    explicit PipedProcess(std::vector<std::string> command) : name_(command.front()) {
        std::vector<char*> arguments;
        arguments.reserve(command.size() + 1);
        for (auto& argument : command)
            arguments.push_back(argument.data());
        arguments.push_back(nullptr);

        auto [childInput, ownOutput] = pipe();
        auto [ownInput, childOutput] = pipe();
        posix_spawn_file_actions_t actions;
        ::posix_spawn_file_actions_init(&actions);
        ::posix_spawn_file_actions_adddup2(&actions, childInput.get(), STDIN_FILENO);
        ::posix_spawn_file_actions_adddup2(&actions, childOutput.get(), STDOUT_FILENO);
        const int error =
            ::posix_spawn(&process_, arguments[0], &actions, nullptr, arguments.data(), environ);
        ::posix_spawn_file_actions_destroy(&actions);
        if (error != 0) throw std::system_error(error, std::generic_category(), name_);
        input_ = std::move(ownInput);
        output_ = std::move(ownOutput);
    }
    /// Ends the process's input and waits for it to exit.
    ~PipedProcess() {
        output_.reset();
        input_.reset();
        ::waitpid(process_, nullptr, 0);
    }
    PipedProcess(const PipedProcess&) = delete;
    PipedProcess& operator=(const PipedProcess&) = delete;

    pid_t id() const { return process_; }
    /// Waits for the next line of output; throws if none arrives within 30 seconds.
    std::string line() {
        constexpr int timeout = 30'000; // milliseconds
        while (!holdsLine())
            if (!readMore(timeout)) throw std::runtime_error(name_ + " is silent");
        const auto end = read_.find('\n');
        auto result = read_.substr(0, end);
        read_.erase(0, end + 1);
        return result;
    }
    /// True if there is output that `line` has not returned yet.
    bool hasLine() { return holdsLine() || readMore(0); }

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
    bool holdsLine() const { return read_.find('\n') != std::string::npos; }
    bool readMore(int timeout) {
        pollfd ready{input_.get(), POLLIN, 0};
        if (::poll(&ready, 1, timeout) <= 0) return false;
        std::array<char, 4096> buffer{};
        const auto size = ::read(input_.get(), buffer.data(), buffer.size());
        if (size <= 0) throw std::runtime_error(name_ + " has ended");
        read_.append(buffer.data(), static_cast<std::size_t>(size));
        return true;
    }

    std::string name_;
    pid_t process_ = -1;
    UniqueFd input_;
    UniqueFd output_;
    std::string read_;
};

} // namespace prismo
