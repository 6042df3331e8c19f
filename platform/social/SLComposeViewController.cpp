#include "platform/social/SLComposeViewController.h"

#include "platform/text/Link.h"
#include "platform/uikit/UIApplication.h"

#include <array>

namespace prismo {

std::shared_ptr<SLComposeViewController>
SLComposeViewController::composeViewControllerForServiceType(SLServiceType service) {
    return std::make_shared<SLComposeViewController>(service);
}

std::string SLComposeViewController::serviceName() const {
    constexpr std::array names{"Twitter"}; // indexed by SLServiceType
    return names.at(static_cast<std::size_t>(service_));
}

void SLComposeViewController::send() {
    UIApplication::sharedApplication()->openURL("https://twitter.com/intent/tweet?text=" +
                                                percentEncoded(text_));
    dismiss();
}

void SLComposeViewController::dismiss() { dismissViewController(true); }

} // namespace prismo
