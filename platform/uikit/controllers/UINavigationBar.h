#pragma once

#include "platform/uikit/views/UIView.h"

#include <map>
#include <optional>
#include <string>

namespace prismo {

/// How a text is drawn, by attribute name.
using UITextAttributes = std::map<std::string, UIColor>;
inline constexpr const char* NSForegroundColorAttributeName = "NSColor";

/// The bar above the pages. Its tint color is the color of its buttons.
class UINavigationBar : public UIView {
  public:
    /// The bar's background; nullopt means the system's own.
    const std::optional<UIColor>& barTintColor() const { return barTintColor_; }
    void setBarTintColor(std::optional<UIColor> color) { assign(barTintColor_, color); }
    const UITextAttributes& titleTextAttributes() const { return titleTextAttributes_; }
    /// The title's color; nullopt means the system's own.
    std::optional<UIColor> titleColor() const {
        const auto found = titleTextAttributes_.find(NSForegroundColorAttributeName);
        return found == titleTextAttributes_.end() ? std::nullopt : std::optional(found->second);
    }
    /// Replaces all attributes.
    void setTitleTextAttributes(UITextAttributes attributes) {
        assign(titleTextAttributes_, std::move(attributes));
    }

  private:
    std::optional<UIColor> barTintColor_;
    UITextAttributes titleTextAttributes_;
};

} // namespace prismo
