#pragma once

#include "platform/local/accounts/RequestSender.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Signatures of OAuth 1.0a (RFC 5849) with HMAC-SHA1.
///
/// Written out here because no available library fits. The one C library for it has had no release in years,
/// and brings two more TLS libraries into a process that has OpenSSL. The others come with their own HTTP
/// stack and event loop. Without a library it takes sorting, encoding and one HMAC.
namespace prismo::oauth {

/// Names and values, not encoded, in no particular order. A name may occur several times.
using Parameters = std::vector<std::pair<std::string, std::string>>;

/// "name=value&…", percent-encoded: a query or the body of a form.
std::string formEncoded(const Parameters& parameters);
/// The parameters of a query or of the body of a form, where "+" stands for a space.
Parameters formDecoded(std::string_view text);

/// The text that is signed. `url` is scheme, host and path, normalized, without a query. `parameters` are
/// those of the query, the body and the Authorization header.
std::string signatureBaseString(std::string_view method, std::string_view url, const Parameters& parameters);

/// The signature in Base64. Empty if it cannot be computed.
std::string signature(std::string_view baseString, std::string_view consumerSecret,
                      std::string_view tokenSecret);

/// What differs between any two requests.
struct Occasion {
    std::string nonce;
    /// Seconds since 1970.
    std::string timestamp;

    /// Returns nullopt if the machine has no random numbers.
    static std::optional<Occasion> now();
};

/// The value of the Authorization header. `url` and `parameters` are those of the base string, without the
/// parameters that this adds. Empty if the signature cannot be computed.
std::string authorization(std::string_view method, std::string_view url, const Parameters& parameters,
                          const AccountSecrets& secrets, const Occasion& occasion);

} // namespace prismo::oauth
