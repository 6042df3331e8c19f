#include "platform/uikit/controllers/UISplitViewController.h"

#include <algorithm>
#include <utility>

namespace prismo {

void UISplitViewController::setViewControllers(
    const std::vector<std::shared_ptr<UIViewController>>& controllers) {
    if (controllers == viewControllers_) return;
    for (const auto& former : std::exchange(viewControllers_, controllers))
        if (std::ranges::find(controllers, former) == controllers.end())
            former->setSplitViewController(nullptr);
    for (const auto& controller : controllers)
        controller->setSplitViewController(sharedSelf<UISplitViewController>());
    changed();
}

} // namespace prismo
