#include "settings/supervisor/Instance.h"

#include "platform/local/installation/BaseDirectories.h"

#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <system_error>
#include <thread>

namespace prismo::settings {

namespace {

/// A directory that belongs to the user alone, preferably one that ends with the session.
std::string personalDirectory() {
    if (const auto runtime = runtimeDirectory(); !runtime.empty()) return runtime + "/prismo2";
    if (const auto state = stateHome(); !state.empty()) return state + "/prismo2";
    throw std::system_error(ENOENT, std::generic_category(), "$XDG_RUNTIME_DIR");
}

[[noreturn]] void fail(const std::string& path, int error = errno) {
    throw std::system_error(error, std::generic_category(), path);
}

sockaddr_un address(const std::string& name) {
    sockaddr_un result{};
    result.sun_family = AF_UNIX;
    std::strncpy(result.sun_path, name.c_str(), sizeof result.sun_path - 1);
    return result;
}

} // namespace

Instance::Instance(const struct stat& root, const std::string& token)
    : path_(personalDirectory()),
      name_("settings-" + std::to_string(root.st_dev) + "-" + std::to_string(root.st_ino)) {
    std::filesystem::create_directories(path_);
    directory_.reset(::open(path_.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!directory_) fail(path_);
    lock_.reset(::openat(directory_.get(), (name_ + ".lock").c_str(),
                         O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (!lock_) fail(path_ + "/" + name_ + ".lock");

    // The first instance may not listen yet, or may be about to exit.
    using Clock = std::chrono::steady_clock;
    const auto deadline = Clock::now() + std::chrono::seconds(2);
    while (!lock()) {
        if (ask(token)) return;
        if (Clock::now() > deadline) fail(path_ + "/" + name_ + ".socket", ETIMEDOUT);
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    listen();
}

Instance::~Instance() {
    if (isFirst()) ::unlinkat(directory_.get(), (name_ + ".socket").c_str(), 0);
}

bool Instance::lock() {
    if (::flock(lock_.get(), LOCK_EX | LOCK_NB) == 0) return true;
    if (errno != EWOULDBLOCK && errno != EINTR) fail(path_ + "/" + name_ + ".lock");
    return false;
}

std::string Instance::socketName() const {
    return "/proc/self/fd/" + std::to_string(directory_.get()) + "/" + name_ + ".socket";
}

void Instance::listen() {
    ::unlinkat(directory_.get(), (name_ + ".socket").c_str(), 0);
    UniqueFd socket(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    const auto where = address(socketName());
    if (!socket || ::bind(socket.get(), reinterpret_cast<const sockaddr*>(&where), sizeof where) < 0)
        fail(path_ + "/" + name_ + ".socket");
    requests_ = std::move(socket);
}

bool Instance::ask(const std::string& token) const {
    const UniqueFd socket(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    const auto where = address(socketName());
    if (!socket) return false;
    // A full queue already holds requests to raise the window.
    return ::sendto(socket.get(), token.data(), token.size(), MSG_NOSIGNAL,
                    reinterpret_cast<const sockaddr*>(&where), sizeof where) >= 0 ||
           errno == EAGAIN;
}

} // namespace prismo::settings
