#pragma once

#include "platform/uikit/controllers/UINavigationBar.h"
#include "platform/uikit/controllers/UIViewController.h"

#include <memory>
#include <vector>

namespace prismo {

/// A stack of pages, root first; the last one is on screen. The stack keeps its pages alive and notifies each
/// one when it comes and when it goes, at the latest when the stack itself is destroyed.
class UINavigationController : public UIViewController {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }
    ~UINavigationController() override;

    const std::vector<std::shared_ptr<UIViewController>>& viewControllers() const { return viewControllers_; }
    /// The page on screen, or null.
    std::shared_ptr<UIViewController> topViewController() const;

    /// The page on screen, ignoring any page presented over the stack.
    std::shared_ptr<UIViewController> visibleViewController() const { return topViewController(); }
    /// Never null; owned by this controller.
    const std::shared_ptr<UINavigationBar>& navigationBar() const { return navigationBar_; }

    /// Loads the page's view and brings it on screen.
    void pushViewController(const std::shared_ptr<UIViewController>& page, bool animated);
    /// Goes back one page; the root page stays.
    void popViewController(bool animated);
    /// Goes back to that page; does nothing if it is not on the stack.
    void popToViewController(const std::shared_ptr<UIViewController>& page, bool animated);

  private:
    std::shared_ptr<UINavigationBar> navigationBar_ = std::make_shared<UINavigationBar>();
    std::vector<std::shared_ptr<UIViewController>> viewControllers_;
};

} // namespace prismo
