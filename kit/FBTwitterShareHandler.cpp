#include "kit/FBTwitterShareHandler.h"

#include "platform/social/SLComposeViewController.h"

namespace prismo {

const Class& FBTwitterShareHandler::classObject() {
    static const Class objectClass("FBTwitterShareHandler", &NSObject::classObject(),
                                   [] { return std::make_shared<FBTwitterShareHandler>(); },
                                   {method<&FBTwitterShareHandler::shareTapped>("shareTapped:")});
    return objectClass;
}

const std::shared_ptr<FBTwitterShareHandler>& FBTwitterShareHandler::sharedInstance() {
    static const auto handler = std::make_shared<FBTwitterShareHandler>();
    return handler;
}

void FBTwitterShareHandler::shareTapped(const std::shared_ptr<FBBarButtonItem>& sender) {
    const auto container = sender ? sender->container() : nullptr;
    if (!container) return;
    const auto sheet = SLComposeViewController::composeViewControllerForServiceType(SLServiceTypeTwitter);
    sheet->setInitialText(sender->shareText());
    container->presentViewController(sheet, true);
}

} // namespace prismo
