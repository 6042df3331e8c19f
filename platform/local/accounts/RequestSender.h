#pragma once

#include "platform/foundation/Device.h"

#include <functional>
#include <string>

namespace prismo {

/// What signs the requests of an account. Never goes into an effect, message or log.
struct AccountSecrets {
    std::string consumerKey;
    std::string consumerSecret;
    std::string token;
    std::string tokenSecret;
};

/// Signs requests and sends them over HTTPS. The destructor waits a short time for requests that are under
/// way, then aborts them. By its end, every completion has been called.
class RequestSender {
  public:
    static constexpr const char* serviceName = "accounts";
    static constexpr const char* serviceMaker = "prismo2MakeRequestSender";

    virtual ~RequestSender() = default;

    /// Does not wait. Calls `completion` once, on the sender's own thread, with the HTTP status, or with 0 if
    /// there was no answer: no connection, an untrusted server, a timeout, a URL that is not https, or an
    /// unknown method. Callable from any thread.
    virtual void send(const AccountRequest& request, const AccountSecrets& secrets,
                      std::function<void(int status)> completion) = 0;
};

} // namespace prismo
