#pragma once

#include "platform/foundation/Device.h"

#include <functional>
#include <string>

namespace prismo {

/// What requests in the name of an account are signed with. It goes into no effect, message or log.
struct AccountSecrets {
    std::string consumerKey;
    std::string consumerSecret;
    std::string token;
    std::string tokenSecret;
};

/// Signs requests and sends them over HTTPS. Its end waits a short while for what is under way, then breaks
/// it off; every completion has been called by then.
class RequestSender {
  public:
    static constexpr const char* serviceName = "accounts";
    static constexpr const char* serviceMaker = "prismo2MakeRequestSender";

    virtual ~RequestSender() = default;

    /// Goes on at once. `completion` is called once, on the sender's own thread, with the HTTP status, or 0
    /// where there was no answer: no connection, no trust in the server, no time left, no https, no such
    /// method. Callable from every thread.
    virtual void send(const AccountRequest& request, const AccountSecrets& secrets,
                      std::function<void(int status)> completion) = 0;
};

} // namespace prismo
