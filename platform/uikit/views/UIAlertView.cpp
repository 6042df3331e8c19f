#include "platform/uikit/views/UIAlertView.h"

#include "platform/uikit/UIApplication.h"

#include <utility>

namespace prismo {

UIAlertView::UIAlertView(std::optional<std::string> title, std::optional<std::string> message,
                         const std::shared_ptr<UIAlertViewDelegate>& delegate, std::string cancelButtonTitle)
    : title_(std::move(title)), message_(std::move(message)), delegate_(delegate),
      buttonTitles_({std::move(cancelButtonTitle)}) {}

void UIAlertView::addButtonWithTitle(std::string title) {
    buttonTitles_.push_back(std::move(title));
    changed();
}

void UIAlertView::show() { UIApplication::sharedApplication()->present(shared_from_this()); }

void UIAlertView::clickButtonAtIndex(std::size_t index) {
    const auto keepAlive = shared_from_this();
    UIApplication::sharedApplication()->dismiss(keepAlive);
    if (const auto delegate = delegate_.lock()) delegate->alertViewClickedButtonAtIndex(*this, index);
}

} // namespace prismo
