#pragma once

#include "platform/uikit/controllers/UIViewController.h"

#include <memory>
#include <vector>

namespace prismo {

/// The outermost controller of the Settings application. Its last child is the detail side, which holds the
/// pages.
class UISplitViewController : public UIViewController {
  public:
    const std::vector<std::shared_ptr<UIViewController>>& viewControllers() const { return viewControllers_; }
    /// From now on, these controllers and the pages in them can find this controller; they do not keep it
    /// alive.
    void setViewControllers(const std::vector<std::shared_ptr<UIViewController>>& controllers);

  private:
    std::vector<std::shared_ptr<UIViewController>> viewControllers_;
};

} // namespace prismo
