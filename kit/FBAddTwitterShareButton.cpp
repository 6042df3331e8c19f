#include "kit/FBAddTwitterShareButton.h"

#include "kit/FBTwitterShareHandler.h"

#include "platform/uikit/graphics/UIGraphics.h"

#include <utility>

namespace prismo {

namespace {

std::shared_ptr<UIImage> transparentImage() {
    UIGraphicsBeginImageContextWithOptions({20, 20}, UIGraphicsOpacity::transparent, 0);
    auto image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
}

} // namespace

void FBAddTwitterShareButton(const std::shared_ptr<UIViewController>& controller,
                             std::shared_ptr<UIImage> image, std::string shareText) {
    const auto item = std::make_shared<FBBarButtonItem>();
    item->initWithImage(std::move(image), UIBarButtonItemStyle::plain,
                        FBTwitterShareHandler::sharedInstance(), "shareTapped:");
    item->setAccessibilityLabel("Share");
    // An empty background replaces the border that the system would draw.
    const auto background = transparentImage();
    item->setContainer(controller);
    item->setShareText(std::move(shareText));
    item->setBackgroundImage(background);
    controller->navigationItem().setRightBarButtonItem(item);
}

} // namespace prismo
