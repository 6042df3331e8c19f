#pragma once

#include "platform/local/accounts/RequestSender.h"

#include <chrono>
#include <curl/curl.h>
#include <memory>
#include <string>

namespace prismo {

struct TransferOptions {
    /// A file of certificates to trust in place of the system's.
    std::string certificates;
    /// "HOST:PORT:ADDRESS:PORT": connections for the first two go to the others.
    std::string connectTo;
    std::chrono::milliseconds connectTimeout = std::chrono::seconds(10);
    /// For all of a request.
    std::chrono::milliseconds timeout = std::chrono::seconds(30);
};

/// One signed request on its way, as libcurl runs it.
class Transfer {
  public:
    /// `handle` is null afterwards for what cannot be sent.
    Transfer(const AccountRequest& request, const AccountSecrets& secrets, const TransferOptions& options);

    CURL* handle() const { return handle_.get(); }
    /// The status that the server answered with; 0 where the transfer ended with an error.
    int status(CURLcode result) const;

  private:
    // In this order; false where it cannot be done.
    bool prepareUrl(const AccountRequest& request);
    bool sign(const AccountRequest& request, const AccountSecrets& secrets);
    bool setOptions(const AccountRequest& request, const TransferOptions& options);

    struct Free {
        void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
        void operator()(CURLU* url) const { curl_url_cleanup(url); }
        void operator()(curl_slist* list) const { curl_slist_free_all(list); }
    };
    template <typename T>
    using Owned = std::unique_ptr<T, Free>;

    // libcurl reads these until the handle goes.
    Owned<CURLU> url_;
    Owned<curl_slist> headers_;
    Owned<curl_slist> connectTo_;
    Owned<CURL> handle_;
};

} // namespace prismo
