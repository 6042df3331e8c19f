#include "tests/linux-services/SigningServer.h"

#include <array>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace prismo {

namespace {

std::pair<UniqueFd, UniqueFd> makePipe() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::system_error(errno, std::generic_category(), "pipe");
    return {UniqueFd(ends[0]), UniqueFd(ends[1])};
}

} // namespace

AccountSecrets SigningServer::secrets() {
    return {"consumerKey0123456789", "c&n=s+m/r%20ü", "token0123456789abcdef", "t&k=n \"secret\""};
}

SigningServer::SigningServer(std::string name) : name_(std::move(name)) {
    const auto [consumerKey, consumerSecret, token, tokenSecret] = secrets();
    std::vector<std::string> arguments{"/usr/bin/python3", SIGNING_SERVER, directory_.path(), consumerKey,
                                       consumerSecret,     token,          tokenSecret,       name_};
    std::vector<char*> argv;
    argv.reserve(arguments.size() + 1);
    for (auto& argument : arguments)
        argv.push_back(argument.data());
    argv.push_back(nullptr);
    auto [childInput, ownOutput] = makePipe();
    auto [ownInput, childOutput] = makePipe();
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, childInput.get(), STDIN_FILENO);
    ::posix_spawn_file_actions_adddup2(&actions, childOutput.get(), STDOUT_FILENO);
    const int error = ::posix_spawn(&process_, argv[0], &actions, nullptr, argv.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    if (error != 0) throw std::system_error(error, std::generic_category(), argv[0]);
    childOutput.reset();
    input_ = std::move(ownInput);
    output_ = std::move(ownOutput);
    port_ = line();
}

SigningServer::~SigningServer() {
    output_.reset();
    ::waitpid(process_, nullptr, 0);
}

TransferOptions SigningServer::options(const std::string& name) const {
    TransferOptions result;
    result.certificates = directory_.path() / "certificate.pem";
    result.connectTo = name + "::127.0.0.1:" + port_;
    return result;
}

bool SigningServer::hasRequest() { return read_.find('\n') != std::string::npos || readMore(0); }

std::string SigningServer::line() {
    for (;;) {
        if (const auto end = read_.find('\n'); end != std::string::npos) {
            auto result = read_.substr(0, end);
            read_.erase(0, end + 1);
            return result;
        }
        constexpr int patience = 30'000;
        if (!readMore(patience)) throw std::runtime_error("the server is silent");
    }
}

bool SigningServer::readMore(int patience) {
    pollfd ready{input_.get(), POLLIN, 0};
    if (::poll(&ready, 1, patience) <= 0) return false;
    std::array<char, 4096> buffer{};
    const auto size = ::read(input_.get(), buffer.data(), buffer.size());
    if (size <= 0) throw std::runtime_error("the server has ended");
    read_.append(buffer.data(), static_cast<std::size_t>(size));
    return true;
}

} // namespace prismo
