#pragma once

#include "platform/uikit/graphics/UIFont.h"
#include "platform/uikit/views/UIView.h"

#include <string>

namespace prismo {

class UILabel : public UIView {
  public:
    const std::string& text() const { return text_; }
    void setText(std::string text) { assign(text_, std::move(text)); }
    UIFont font() const { return font_; }
    void setFont(UIFont font) { assign(font_, font); }

  private:
    std::string text_;
    UIFont font_;
};

} // namespace prismo
