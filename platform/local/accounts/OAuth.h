#pragma once

#include "platform/local/accounts/RequestSender.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Signatures of OAuth 1.0a (RFC 5849) with HMAC-SHA1.
///
/// It is written out here because no library at hand does it well: the one C library for it has had no
/// release in years and brings two further TLS libraries into a process that has OpenSSL, and the others come
/// with an HTTP stack and an event loop of their own. Without them it is sorting, encoding and one HMAC.
namespace prismo::oauth {

/// Names and values, not encoded, in no order; a name may occur several times.
using Parameters = std::vector<std::pair<std::string, std::string>>;

/// "name=value&…", percent-encoded: a query, or a form's body.
std::string formEncoded(const Parameters& parameters);
/// Those of a query or a form's body; "+" stands for a space there.
Parameters formDecoded(std::string_view text);

/// What is signed. `url` is scheme, host and path, normalised, without a query; `parameters` are those of the
/// query, of the body and of the Authorization header.
std::string signatureBaseString(std::string_view method, std::string_view url, const Parameters& parameters);

/// In base 64. Empty where it cannot be computed.
std::string signature(std::string_view baseString, std::string_view consumerSecret,
                      std::string_view tokenSecret);

/// What is never the same for two requests.
struct Occasion {
    std::string nonce;
    /// Seconds since 1970.
    std::string timestamp;

    /// Nothing where the machine has no random numbers.
    static std::optional<Occasion> now();
};

/// The value of the Authorization header; `url` and `parameters` as for the base string, but without the
/// parameters that this adds. Empty where the signature cannot be computed.
std::string authorization(std::string_view method, std::string_view url, const Parameters& parameters,
                          const AccountSecrets& secrets, const Occasion& occasion);

} // namespace prismo::oauth
