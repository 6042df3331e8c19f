#include "platform/uikit/graphics/UIGraphics.h"

#include "platform/uikit/UIScreen.h"

#include <vector>

namespace prismo {

namespace {

/// Nothing draws in here, so a context's image is always blank.
struct Context {
    CGSize size;
    UIGraphicsOpacity opacity;
    double scale;
};

std::vector<Context>& contexts() {
    static std::vector<Context> open;
    return open;
}

double screenScale() {
    const auto* screen = UIScreen::mainScreen();
    return screen ? screen->scale() : 1;
}

} // namespace

void UIGraphicsBeginImageContextWithOptions(CGSize size, UIGraphicsOpacity opacity, double scale) {
    contexts().push_back({size, opacity, scale == 0 ? screenScale() : scale});
}

std::shared_ptr<UIImage> UIGraphicsGetImageFromCurrentImageContext() {
    if (contexts().empty()) return nullptr;
    const auto& [size, opacity, scale] = contexts().back();
    return std::make_shared<UIImage>(size, Data(), scale, opacity);
}

void UIGraphicsEndImageContext() {
    if (!contexts().empty()) contexts().pop_back();
}

} // namespace prismo
