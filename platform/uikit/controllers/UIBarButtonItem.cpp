#include "platform/uikit/controllers/UIBarButtonItem.h"

#include <utility>

namespace prismo {

const Class& UIBarButtonItem::classObject() {
    static const Class objectClass("UIBarButtonItem", &NSObject::classObject(),
                                   [] { return std::make_shared<UIBarButtonItem>(); });
    return objectClass;
}

void UIBarButtonItem::initWithImage(std::shared_ptr<UIImage> image, UIBarButtonItemStyle style,
                                    const std::shared_ptr<NSObject>& target, std::string action) {
    image_ = std::move(image);
    style_ = style;
    action_ = {target, std::move(action)};
    changed();
}

void UIBarButtonItem::tap() {
    if (const auto target = action_.target.lock())
        target->performSelector(action_.selector, {shared_from_this()}, "bar button");
}

} // namespace prismo
