#include "platform/local/processes/ChildProcess.h"

#include "platform/local/descriptors/SystemProblem.h"
#include "platform/local/descriptors/UniqueFd.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace prismo {

namespace {

class FileActions {
  public:
    FileActions() { ::posix_spawn_file_actions_init(&actions_); }
    ~FileActions() { ::posix_spawn_file_actions_destroy(&actions_); }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;
    posix_spawn_file_actions_t* get() { return &actions_; }

  private:
    posix_spawn_file_actions_t actions_{};
};

/// `texts` as the kernel takes them: pointers to them, then null.
std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> result;
    result.reserve(texts.size() + 1);
    for (auto& text : texts)
        result.push_back(text.data());
    result.push_back(nullptr);
    return result;
}

/// Waits for the child in the background, so that it leaves no zombie.
///
/// A thread that waits for this one child does not interfere with the host's signal handlers or its other
/// children, and needs no run loop.
void collectInBackground(pid_t child) {
    if (::waitpid(child, nullptr, WNOHANG) != 0) return;
    // The thread inherits the mask: it must not handle the host's signals.
    sigset_t all;
    sigset_t previous;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &previous);
    try {
        std::thread([child] { ::waitpid(child, nullptr, 0); }).detach();
    } catch (const std::system_error&) {
        // Without a thread, the zombie stays until this process ends.
    }
    ::pthread_sigmask(SIG_SETMASK, &previous, nullptr);
}

std::string readToEnd(int fd) {
    std::string result;
    std::array<char, 65536> buffer{};
    for (;;) {
        const auto size = ::read(fd, buffer.data(), buffer.size());
        if (size > 0)
            result.append(buffer.data(), static_cast<std::size_t>(size));
        else if (size == 0 || errno != EINTR)
            return result;
    }
}

} // namespace

Result<std::string> runAndRead(const std::string& executable, const std::vector<std::string>& arguments) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) return systemProblem(Problem::Kind::notStarted, executable);
    const UniqueFd output(ends[0]);
    UniqueFd input(ends[1]);

    auto texts = arguments;
    texts.insert(texts.begin(), executable);
    FileActions actions;
    // The order matters: if the host has closed its standard input, an end of the pipe may be descriptor 0.
    ::posix_spawn_file_actions_adddup2(actions.get(), input.get(), STDOUT_FILENO);
    ::posix_spawn_file_actions_addopen(actions.get(), STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_addopen(actions.get(), STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t child = -1;
    errno =
        ::posix_spawn(&child, executable.c_str(), actions.get(), nullptr, pointers(texts).data(), environ);
    if (errno != 0) return systemProblem(Problem::Kind::notStarted, executable);
    input.reset();
    auto result = readToEnd(output.get());
    // It may have closed its output and still be running.
    collectInBackground(child);
    return result;
}

int spawnDetached(const std::string& executable, const std::vector<std::string>& arguments,
                  const std::vector<std::string>& environment) {
    auto texts = arguments;
    auto variables = environment;
    pid_t child = -1;
    const int error = ::posix_spawn(&child, executable.c_str(), nullptr, nullptr, pointers(texts).data(),
                                    pointers(variables).data());
    if (error == 0) collectInBackground(child);
    return error;
}

} // namespace prismo
