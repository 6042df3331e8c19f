#include "platform/uikit/controllers/UINavigationController.h"

#include <algorithm>

namespace prismo {

const Class& UINavigationController::classObject() {
    static const Class objectClass("UINavigationController", &UIViewController::classObject(),
                                   [] { return std::make_shared<UINavigationController>(); });
    return objectClass;
}

UINavigationController::~UINavigationController() {
    for (const auto& page : viewControllers_)
        page->didMoveToParentViewController(nullptr);
}

std::shared_ptr<UIViewController> UINavigationController::topViewController() const {
    return viewControllers_.empty() ? nullptr : viewControllers_.back();
}

void UINavigationController::pushViewController(const std::shared_ptr<UIViewController>& page,
                                                bool animated) {
    const auto covered = topViewController();
    page->setNavigationController(sharedSelf<UINavigationController>());
    page->view();
    if (covered) covered->viewWillDisappear(animated);
    page->viewWillAppear(animated);
    viewControllers_.push_back(page);
    changed();
    if (covered) covered->viewDidDisappear(animated);
    page->viewDidAppear(animated);
    page->didMoveToParentViewController(page->navigationController());
}

void UINavigationController::popViewController(bool animated) {
    if (viewControllers_.size() > 1)
        popToViewController(viewControllers_[viewControllers_.size() - 2], animated);
}

void UINavigationController::popToViewController(const std::shared_ptr<UIViewController>& page,
                                                 bool animated) {
    const auto kept = page; // `page` may be an element of the stack
    const auto left = topViewController();
    // Checked again after each callback, because a page may navigate elsewhere in it, and then that wins.
    const auto isPending = [&] {
        return left != kept && left == topViewController() &&
               std::ranges::find(viewControllers_, kept) != viewControllers_.end();
    };
    if (isPending()) left->viewWillDisappear(animated);
    if (isPending()) kept->viewWillAppear(animated);
    if (!isPending()) return;
    const auto above = std::ranges::find(viewControllers_, kept) + 1;
    const std::vector gone(above, viewControllers_.end());
    viewControllers_.erase(above, viewControllers_.end());
    for (const auto& former : gone)
        former->setNavigationController(nullptr);
    changed();
    left->viewDidDisappear(animated);
    kept->viewDidAppear(animated);
    for (const auto& former : gone)
        if (!former->navigationController()) former->didMoveToParentViewController(nullptr);
}

} // namespace prismo
