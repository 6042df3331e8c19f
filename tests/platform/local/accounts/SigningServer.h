#pragma once

#include "platform/local/accounts/Transfer.h"
#include "tests/support/Directories.h"
#include "tests/support/PipedProcess.h"

#include <nlohmann/json.hpp>
#include <string>

namespace prismo {

/// A second process that checks signatures with an implementation of its own, behind TLS.
class SigningServer {
  public:
    /// The name that its certificate is for, without another.
    static constexpr const char* host = "api.example.test";
    /// What it accepts. Secrets have characters that must not stand in a signature's key as they are.
    static AccountSecrets secrets();

    /// Returns when it is listening. Its certificate is for `name`.
    explicit SigningServer(std::string name = host);

    /// Trusts it, and finds it under its name or another.
    TransferOptions options() const { return options(name_); }
    TransferOptions options(const std::string& name) const;
    /// The next request that came in. Throws where none comes in time.
    nlohmann::json request() { return nlohmann::json::parse(process_.line()); }
    /// Has a request come in that `request` has not returned?
    bool hasRequest() { return process_.hasLine(); }

  private:
    TemporaryDirectory directory_;
    std::string name_;
    PipedProcess process_;
    std::string port_;
};

} // namespace prismo
