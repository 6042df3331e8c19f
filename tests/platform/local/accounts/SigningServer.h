#pragma once

#include "platform/local/accounts/Transfer.h"
#include "tests/support/Directories.h"
#include "tests/support/PipedProcess.h"

#include <nlohmann/json.hpp>
#include <string>

namespace prismo {

/// A second process that checks signatures with its own implementation, behind TLS.
class SigningServer {
  public:
    /// The default name of its certificate.
    static constexpr const char* host = "api.example.test";
    /// What it accepts. The secrets have characters that must be encoded in the key of a signature.
    static AccountSecrets secrets();

    /// Returns when it is listening. Its certificate is for `name`.
    explicit SigningServer(std::string name = host);

    /// Options that trust it, and find it under its name or another one.
    TransferOptions options() const { return options(name_); }
    TransferOptions options(const std::string& name) const;
    /// The next request that it received. Throws if none comes in time.
    nlohmann::json request() { return nlohmann::json::parse(process_.line()); }
    /// Has it received a request that `request` has not returned?
    bool hasRequest() { return process_.hasLine(); }

  private:
    TemporaryDirectory directory_;
    std::string name_;
    PipedProcess process_;
    std::string port_;
};

} // namespace prismo
