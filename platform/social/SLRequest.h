#pragma once

#include "platform/social/ACAccountStore.h"
#include "platform/social/SLServiceType.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace prismo {

/// The numbers are the platform's.
enum class SLRequestMethod { get = 0, post = 1 };

/// A request to a service in the name of one of the person's accounts, signed and sent by the device.
class SLRequest : public NSObject {
  public:
    static std::shared_ptr<SLRequest> requestForServiceType(SLServiceType service, SLRequestMethod method,
                                                            std::string url,
                                                            std::map<std::string, std::string> parameters);

    void setAccount(std::shared_ptr<ACAccount> account) { account_ = std::move(account); }
    /// Sends it and goes on; does nothing without an account. `handler` is called once, on whatever thread,
    /// with the HTTP status, or 0 where there was no answer.
    void performRequestWithHandler(std::function<void(int status)> handler);

  private:
    AccountRequest request_;
    std::shared_ptr<ACAccount> account_;
};

} // namespace prismo
