#pragma once

#include "platform/uikit/views/UIView.h"

namespace prismo {

// Windows with a higher level are in front of those with a lower one. The values are the platform's.
inline constexpr double UIWindowLevelNormal = 0;
inline constexpr double UIWindowLevelStatusBar = 1000;
inline constexpr double UIWindowLevelAlert = 2000;

class UIWindow : public UIView {
  public:
    using UIView::UIView;

    double windowLevel() const { return windowLevel_; }
    void setWindowLevel(double level) { assign(windowLevel_, level); }

  private:
    double windowLevel_ = UIWindowLevelNormal;
};

} // namespace prismo
