#pragma once

#include "platform/uikit/controllers/UIViewController.h"

#include <memory>
#include <vector>

namespace prismo {

/// The Settings application's outermost controller: its last one is the detail side, with the pages.
class UISplitViewController : public UIViewController {
  public:
    const std::vector<std::shared_ptr<UIViewController>>& viewControllers() const { return viewControllers_; }
    /// They and the pages in them find this controller from now on; they do not keep it alive.
    void setViewControllers(const std::vector<std::shared_ptr<UIViewController>>& controllers);

  private:
    std::vector<std::shared_ptr<UIViewController>> viewControllers_;
};

} // namespace prismo
