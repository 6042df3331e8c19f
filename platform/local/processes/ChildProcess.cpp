#include "platform/local/processes/ChildProcess.h"

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

/// `texts` as the kernel takes them: pointers into them, and a null.
std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> result;
    result.reserve(texts.size() + 1);
    for (auto& text : texts)
        result.push_back(text.data());
    result.push_back(nullptr);
    return result;
}

/// Collects the child when it ends, so that it leaves no zombie.
///
/// A thread that waits for this one child meddles with nothing of the host's: neither its signal handlers nor
/// its other children, and it needs no run loop that turns.
void collectInBackground(pid_t child) {
    if (::waitpid(child, nullptr, WNOHANG) != 0) return;
    // The host's signals are not for that thread, which inherits the mask.
    sigset_t all;
    sigset_t previous;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &previous);
    try {
        std::thread([child] { ::waitpid(child, nullptr, 0); }).detach();
    } catch (const std::system_error&) {
        // No thread to be had: the zombie goes when this process does.
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

std::optional<std::string> runAndRead(const std::string& executable,
                                      const std::vector<std::string>& arguments) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) return std::nullopt;
    const UniqueFd output(ends[0]);
    UniqueFd input(ends[1]);

    auto texts = arguments;
    texts.insert(texts.begin(), executable);
    FileActions actions;
    // In this order: where the host has closed its own, an end of the pipe may be descriptor 0.
    ::posix_spawn_file_actions_adddup2(actions.get(), input.get(), STDOUT_FILENO);
    ::posix_spawn_file_actions_addopen(actions.get(), STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_addopen(actions.get(), STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t child = -1;
    if (::posix_spawn(&child, executable.c_str(), actions.get(), nullptr, pointers(texts).data(), environ) !=
        0)
        return std::nullopt;
    input.reset();
    auto result = readToEnd(output.get());
    // It may have closed its output and go on.
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
