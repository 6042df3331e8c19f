#include "platform/local/accounts/Transfer.h"

#include "platform/local/accounts/OAuth.h"
#include "platform/text/Text.h"

#include <initializer_list>

namespace prismo {

namespace {

bool isPost(const AccountRequest& request) { return request.method == "POST"; }

/// As they are sent: a query or the body of a form.
std::string encodedParameters(const AccountRequest& request) {
    return oauth::formEncoded({request.parameters.begin(), request.parameters.end()});
}

/// A part of the URL, as it is sent, or "" if it has none.
std::string part(CURLU* url, CURLUPart which, unsigned int flags = 0) {
    char* text = nullptr;
    if (curl_url_get(url, which, &text, flags) != CURLUE_OK) return {};
    std::string result(text);
    curl_free(text);
    return result;
}

/// Scheme, host and path, in the form that is signed.
std::string signedUrl(CURLU* url) {
    const auto port = part(url, CURLUPART_PORT, CURLU_NO_DEFAULT_PORT);
    return part(url, CURLUPART_SCHEME) + "://" + part(url, CURLUPART_HOST) +
           (port.empty() ? "" : ":" + port) + part(url, CURLUPART_PATH);
}

std::size_t discard(char* /*data*/, std::size_t size, std::size_t count, void* /*unused*/) {
    return size * count;
}

/// Sets options until one is refused.
class OptionSetter {
  public:
    explicit OptionSetter(CURL* handle) : handle_(handle) {}
    template <typename Value>
    void set(CURLoption option, Value value) {
        if (accepted_) accepted_ = curl_easy_setopt(handle_, option, value) == CURLE_OK;
    }
    bool accepted() const { return accepted_; }

  private:
    CURL* handle_;
    bool accepted_ = true;
};

} // namespace

Transfer::Transfer(const AccountRequest& request, const AccountSecrets& secrets,
                   const TransferOptions& options)
    : url_(curl_url()), handle_(curl_easy_init()) {
    const bool isKnownMethod = isPost(request) || request.method == "GET";
    if (!url_ || !handle_ || !isKnownMethod || !prepareUrl(request) || !sign(request, secrets) ||
        !setOptions(request, options))
        handle_.reset();
}

bool Transfer::prepareUrl(const AccountRequest& request) {
    // A user in the URL would replace the signature.
    if (curl_url_set(url_.get(), CURLUPART_URL, request.url.c_str(), CURLU_DISALLOW_USER) != CURLUE_OK)
        return false;
    // The host is signed in lower case, whatever case is sent.
    const auto host = lowercased(part(url_.get(), CURLUPART_HOST));
    if (curl_url_set(url_.get(), CURLUPART_HOST, host.c_str(), 0) != CURLUE_OK) return false;
    const auto encoded = encodedParameters(request);
    return isPost(request) || encoded.empty() ||
           curl_url_set(url_.get(), CURLUPART_QUERY, encoded.c_str(), CURLU_APPENDQUERY) == CURLUE_OK;
}

bool Transfer::sign(const AccountRequest& request, const AccountSecrets& secrets) {
    // The query is signed as it is sent, including parameters that were in the URL.
    auto parameters = oauth::formDecoded(part(url_.get(), CURLUPART_QUERY));
    if (isPost(request))
        parameters.insert(parameters.begin(), request.parameters.begin(), request.parameters.end());
    const auto occasion = oauth::Occasion::now();
    if (!occasion) return false;
    const auto authorization =
        oauth::authorization(request.method, signedUrl(url_.get()), parameters, secrets, *occasion);
    if (authorization.empty()) return false;
    headers_.reset(curl_slist_append(nullptr, ("Authorization: " + authorization).c_str()));
    return headers_ != nullptr;
}

bool Transfer::setOptions(const AccountRequest& request, const TransferOptions& options) {
    OptionSetter setter(handle_.get());
    setter.set(CURLOPT_CURLU, url_.get());
    setter.set(CURLOPT_HTTPHEADER, headers_.get());
    // A redirect is the answer: the signature is only valid for this URL.
    setter.set(CURLOPT_FOLLOWLOCATION, 0L);
    setter.set(CURLOPT_PROTOCOLS_STR, "https");
    setter.set(CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_TLSv1_2));
    setter.set(CURLOPT_SSL_VERIFYPEER, 1L);
    setter.set(CURLOPT_SSL_VERIFYHOST, 2L);
    setter.set(CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(options.connectTimeout.count()));
    setter.set(CURLOPT_TIMEOUT_MS, static_cast<long>(options.timeout.count()));
    // Keep libcurl away from the host's signals, and do not let a name lookup delay its end.
    setter.set(CURLOPT_NOSIGNAL, 1L);
    setter.set(CURLOPT_QUICK_EXIT, 1L);
    setter.set(CURLOPT_WRITEFUNCTION, &discard);
    if (isPost(request)) {
        const auto body = encodedParameters(request);
        setter.set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(body.size()));
        setter.set(CURLOPT_COPYPOSTFIELDS, body.c_str());
    }
    if (!options.certificates.empty()) setter.set(CURLOPT_CAINFO, options.certificates.c_str());
    if (!options.connectTo.empty()) {
        connectTo_.reset(curl_slist_append(nullptr, options.connectTo.c_str()));
        setter.set(CURLOPT_CONNECT_TO, connectTo_.get());
    }
    return setter.accepted();
}

int Transfer::status(CURLcode result) const {
    long status = 0;
    if (result == CURLE_OK) curl_easy_getinfo(handle_.get(), CURLINFO_RESPONSE_CODE, &status);
    return static_cast<int>(status);
}

} // namespace prismo
