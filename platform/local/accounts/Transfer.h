#pragma once

#include "platform/local/accounts/RequestSender.h"

#include <chrono>
#include <curl/curl.h>
#include <memory>
#include <string>

namespace prismo {

struct TransferOptions {
    /// A file of certificates to trust instead of the system's.
    std::string certificates;
    /// "HOST:PORT:ADDRESS:PORT": connections to the first pair go to the second.
    std::string connectTo;
    std::chrono::milliseconds connectTimeout = std::chrono::seconds(10);
    /// For the whole request.
    std::chrono::milliseconds timeout = std::chrono::seconds(30);
};

/// One signed request, as libcurl sends it.
class Transfer {
  public:
    /// Leaves `handle` null if the request cannot be sent.
    Transfer(const AccountRequest& request, const AccountSecrets& secrets, const TransferOptions& options);

    CURL* handle() const { return handle_.get(); }
    /// The HTTP status of the answer, or 0 if the transfer ended with an error.
    int status(CURLcode result) const;

  private:
    // Called in this order. Each returns false on failure.
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

    // libcurl reads these until the handle is destroyed.
    Owned<CURLU> url_;
    Owned<curl_slist> headers_;
    Owned<curl_slist> connectTo_;
    Owned<CURL> handle_;
};

} // namespace prismo
