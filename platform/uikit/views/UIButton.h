#pragma once

#include "platform/uikit/views/UIControl.h"
#include "platform/uikit/views/UILabel.h"

#include <memory>
#include <optional>
#include <string>

namespace prismo {

/// A button with a title. Its setters define its look in the normal state.
class UIButton : public UIControl {
  public:
    using UIControl::UIControl;

    const std::string& title() const { return titleLabel_->text(); }
    void setTitle(std::string title) { titleLabel_->setText(std::move(title)); }
    const std::optional<UIColor>& titleColor() const { return titleColor_; }
    void setTitleColor(std::optional<UIColor> color) { assign(titleColor_, color); }
    /// Never null; owned by the button, which reports the label's changes as its own.
    const std::shared_ptr<UILabel>& titleLabel() const { return titleLabel_; }

  private:
    std::shared_ptr<UILabel> titleLabel_ = std::make_shared<UILabel>();
    Subscription labelChanges_ = titleLabel_->observe([this] { changed(); });
    std::optional<UIColor> titleColor_;
};

} // namespace prismo
