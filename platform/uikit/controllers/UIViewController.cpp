#include "platform/uikit/controllers/UIViewController.h"

#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UISplitViewController.h"
#include "platform/uikit/UIApplication.h"

namespace prismo {

const Class& UIViewController::classObject() {
    static const Class objectClass(
        "UIViewController", &NSObject::classObject(), [] { return std::make_shared<UIViewController>(); },
        {method<&UIViewController::edgesForExtendedLayout>("edgesForExtendedLayout")});
    return objectClass;
}

std::shared_ptr<UIView> UIViewController::view() {
    if (!view_) {
        loadView();
        viewDidLoad();
    }
    return view_;
}

std::shared_ptr<UISplitViewController> UIViewController::splitViewController() const {
    if (auto split = splitViewController_.lock()) return split;
    const auto navigation = navigationController();
    return navigation ? navigation->splitViewController() : nullptr;
}

void UIViewController::presentViewController(const std::shared_ptr<UIViewController>& page,
                                             bool /*animated*/) {
    page->assign(page->presentingViewController_, sharedSelf<UIViewController>());
    UIApplication::sharedApplication()->present(page);
}

void UIViewController::dismissViewController(bool /*animated*/) {
    assign(presentingViewController_, std::shared_ptr<UIViewController>());
    UIApplication::sharedApplication()->dismiss(shared_from_this());
}

void UIViewController::loadView() { setView(std::make_shared<UIView>()); }

} // namespace prismo
