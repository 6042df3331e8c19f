#include "kit/FBPrefsTint.h"

#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UISplitViewController.h"
#include "platform/uikit/UIApplication.h"

namespace prismo {

namespace {

/// The navigation controller on the detail side of the page's split view controller, or null.
std::shared_ptr<UINavigationController> detailNavigation(const PSListController& controller) {
    const auto split = controller.splitViewController();
    if (!split || split->viewControllers().empty()) return nullptr;
    return std::dynamic_pointer_cast<UINavigationController>(split->viewControllers().back());
}

UITextAttributes titleColor(const std::optional<UIColor>& color) {
    if (!color) return {};
    return {{NSForegroundColorAttributeName, *color}};
}

void tintVisibleView(const UINavigationController& navigation, const std::optional<UIColor>& color,
                     bool autoresizesSubviews) {
    const auto visible = navigation.visibleViewController();
    if (!visible) return;
    visible->view()->setTintColor(color);
    visible->view()->setAutoresizesSubviews(autoresizesSubviews);
}

} // namespace

void FBSetPrefsTint(const std::shared_ptr<PSListController>& controller, std::optional<UIColor> tintColor) {
    if (const auto navigation = detailNavigation(*controller)) {
        navigation->navigationBar()->setTitleTextAttributes(titleColor(tintColor));
        navigation->navigationBar()->setTintColor(tintColor);
        tintVisibleView(*navigation, tintColor, true);
    }
    if (controller->respondsToSelector("edgesForExtendedLayout"))
        controller->setEdgesForExtendedLayout(UIRectEdgeBottom);
    UIApplication::sharedApplication()->setAppearanceWhenContainedIn(
        controller->isa(), {.segmentedControlTintColor = tintColor,
                            .sliderMaximumTrackTintColor = tintColor,
                            .switchOnTintColor = tintColor});
}

void FBResetPrefsTint(const std::shared_ptr<PSListController>& controller) {
    const auto navigation = detailNavigation(*controller);
    if (!navigation) return;
    const auto& bar = navigation->navigationBar();
    bar->setBarTintColor(std::nullopt);
    bar->setTintColor(std::nullopt);
    bar->setTitleTextAttributes(titleColor(UIColor::blackColor()));
    tintVisibleView(*navigation, std::nullopt, false);
}

} // namespace prismo
