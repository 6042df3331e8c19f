#include "settings/supervisor/Supervisor.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace prismo::settings {

namespace {

// A user does not restart the interface this often. A window that crashes at startup dies this often.
constexpr std::size_t mostDeaths = 4;
constexpr std::chrono::seconds soon(5);

// How long a window may take to end after a signal before it is killed.
constexpr timespec patience{2, 0};

bool isIgnored(int signal) {
    struct sigaction action {};
    return ::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

sigset_t handledSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGCHLD);
    // Signals that were ignored at startup, for example by nohup, stay ignored.
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        if (!isIgnored(signal)) sigaddset(&signals, signal);
    return signals;
}

} // namespace

Supervisor::Supervisor(Command command) : command_(std::move(command)) {}

int Supervisor::run() {
    // If SIGCHLD were ignored, the end of the window would go unnoticed.
    ::signal(SIGCHLD, SIG_DFL);
    const auto signals = handledSignals();
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    start();
    for (int ending = 0;;) {
        const int signal = sigtimedwait(&signals, nullptr, ending ? &patience : nullptr);
        if (signal < 0 && errno == EAGAIN) {
            ::kill(window_, SIGKILL);
        } else if (signal == SIGCHLD) {
            int status = 0;
            if (::waitpid(window_, &status, WNOHANG) != window_) continue;
            if (WIFEXITED(status)) return WEXITSTATUS(status);
            if (ending) return 128 + ending;
            // The window gave up and has printed the reason, for example that there is no display.
            if (WTERMSIG(status) == SIGABRT) return 1;
            if (keepsDying()) {
                std::fprintf(stderr,
                             "prismo2-settings: the window keeps dying: %s, %zu times within %d seconds\n",
                             strsignal(WTERMSIG(status)), deaths_.size(), static_cast<int>(soon.count()));
                return 1;
            }
            start();
        } else if (signal > 0) {
            ending = signal;
            ::kill(window_, signal);
        }
    }
}

void Supervisor::start() {
    const auto supervisor = ::getpid();
    window_ = ::fork();
    if (window_ < 0) throw std::system_error(errno, std::generic_category(), "fork");
    if (window_ == 0) becomeWindow(supervisor);
}

void Supervisor::becomeWindow(pid_t supervisor) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != supervisor) _exit(1); // the supervisor died before prctl
    const auto signals = handledSignals();
    sigprocmask(SIG_UNBLOCK, &signals, nullptr);
    if (command_.inherited >= 0) ::fcntl(command_.inherited, F_SETFD, 0);

    std::vector<char*> argv{command_.path.data()};
    for (auto& argument : command_.arguments)
        argv.push_back(argument.data());
    argv.push_back(nullptr);
    ::execv(command_.path.c_str(), argv.data());
    std::fprintf(stderr, "prismo2-settings: %s: %s\n", command_.path.c_str(), std::strerror(errno));
    _exit(1);
}

bool Supervisor::keepsDying() {
    const auto now = std::chrono::steady_clock::now();
    deaths_.push_back(now);
    while (now - deaths_.front() > soon)
        deaths_.pop_front();
    return deaths_.size() >= mostDeaths;
}

} // namespace prismo::settings
