#include "tests/platform/local/accounts/SigningServer.h"

namespace prismo {

namespace {

std::vector<std::string> command(const std::string& directory, const std::string& name) {
    const auto [consumerKey, consumerSecret, token, tokenSecret] = SigningServer::secrets();
    return {"/usr/bin/python3", SIGNING_SERVER, directory,   consumerKey,
            consumerSecret,     token,          tokenSecret, name};
}

} // namespace

AccountSecrets SigningServer::secrets() {
    return {"consumerKey0123456789", "c&n=s+m/r%20ü", "token0123456789abcdef", "t&k=n \"secret\""};
}

SigningServer::SigningServer(std::string name)
    : name_(std::move(name)), process_(command(directory_.path(), name_)), port_(process_.line()) {}

TransferOptions SigningServer::options(const std::string& name) const {
    TransferOptions result;
    result.certificates = directory_.path() / "certificate.pem";
    result.connectTo = name + "::127.0.0.1:" + port_;
    return result;
}

} // namespace prismo
