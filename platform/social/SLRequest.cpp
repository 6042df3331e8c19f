#include "platform/social/SLRequest.h"

#include <utility>

namespace prismo {

std::shared_ptr<SLRequest> SLRequest::requestForServiceType(SLServiceType /*service*/, SLRequestMethod method,
                                                            std::string url,
                                                            std::map<std::string, std::string> parameters) {
    auto request = std::make_shared<SLRequest>();
    request->request_.method = method == SLRequestMethod::post ? "POST" : "GET";
    request->request_.url = std::move(url);
    request->request_.parameters = std::move(parameters);
    return request;
}

void SLRequest::performRequestWithHandler(std::function<void(int)> handler) {
    if (!account_) return;
    request_.account = account_->account();
    Device::current().performRequest(request_, std::move(handler));
}

} // namespace prismo
