#pragma once

#include "platform/social/ACAccountStore.h"
#include "platform/social/SLServiceType.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace prismo {

/// The values are the platform's.
enum class SLRequestMethod { get = 0, post = 1 };

/// A request to a service on behalf of one of the person's accounts. The device signs and sends it.
class SLRequest : public NSObject {
  public:
    static std::shared_ptr<SLRequest> requestForServiceType(SLServiceType service, SLRequestMethod method,
                                                            std::string url,
                                                            std::map<std::string, std::string> parameters);

    void setAccount(std::shared_ptr<ACAccount> account) { account_ = std::move(account); }
    /// Sends the request without waiting; does nothing without an account. Calls `handler` once, on any
    /// thread, with the HTTP status, or 0 if there was no answer.
    void performRequestWithHandler(std::function<void(int status)> handler);

  private:
    AccountRequest request_;
    std::shared_ptr<ACAccount> account_;
};

} // namespace prismo
