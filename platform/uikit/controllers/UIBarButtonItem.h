#pragma once

#include "platform/foundation/NSObject.h"
#include "platform/foundation/Observable.h"
#include "platform/uikit/graphics/UIImage.h"

#include <memory>
#include <string>

namespace prismo {

enum class UIBarButtonItemStyle { plain = 0, done = 2 };

/// A button in the navigation bar. It does not keep its target alive.
class UIBarButtonItem : public NSObject, public Observable {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }

    /// `image` may be null.
    void initWithImage(std::shared_ptr<UIImage> image, UIBarButtonItemStyle style,
                       const std::shared_ptr<NSObject>& target, std::string action);

    const std::shared_ptr<UIImage>& image() const { return image_; }
    UIBarButtonItemStyle style() const { return style_; }
    /// What a screen reader says in place of the image; "" if nothing.
    const std::string& accessibilityLabel() const { return accessibilityLabel_; }
    void setAccessibilityLabel(std::string label) { assign(accessibilityLabel_, std::move(label)); }
    const Message& action() const { return action_; }
    /// For the normal state and the bar's default metrics; null for the system's own border.
    const std::shared_ptr<UIImage>& backgroundImage() const { return backgroundImage_; }
    void setBackgroundImage(std::shared_ptr<UIImage> image) { assign(backgroundImage_, std::move(image)); }

    /// Called by the host when a person taps the item. Sends the action with this item as the sender.
    void tap();

  private:
    std::shared_ptr<UIImage> image_;
    UIBarButtonItemStyle style_ = UIBarButtonItemStyle::plain;
    Message action_;
    std::string accessibilityLabel_;
    std::shared_ptr<UIImage> backgroundImage_;
};

} // namespace prismo
