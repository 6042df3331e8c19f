#include "platform/uikit/graphics/UIImage.h"

#include "platform/foundation/Device.h"
#include "platform/png/Png.h"

#include <utility>

namespace prismo {

const Class& UIImage::classObject() {
    static const Class objectClass("UIImage", &NSObject::classObject(), nullptr);
    return objectClass;
}

std::shared_ptr<UIImage> UIImage::imageWithContentsOfFile(const std::string& path) {
    auto data = Device::current().readFile(path);
    const auto pixels = data ? pngSize(*data) : std::nullopt;
    if (!pixels) return nullptr;
    const CGSize size{static_cast<double>(pixels->width), static_cast<double>(pixels->height)};
    return std::make_shared<UIImage>(size, std::move(*data));
}

} // namespace prismo
