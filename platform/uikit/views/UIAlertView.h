#pragma once

#include "platform/foundation/NSObject.h"
#include "platform/foundation/Observable.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace prismo {

class UIAlertView;

class UIAlertViewDelegate {
  public:
    virtual ~UIAlertViewDelegate() = default;
    virtual void alertViewClickedButtonAtIndex(UIAlertView& alert, std::size_t index) = 0;
};

/// A question on top of everything else, with buttons; the cancel button has index 0. The application keeps
/// it alive while it is shown. It does not keep its delegate alive.
class UIAlertView : public NSObject, public Observable {
  public:
    UIAlertView(std::optional<std::string> title, std::optional<std::string> message,
                const std::shared_ptr<UIAlertViewDelegate>& delegate, std::string cancelButtonTitle);

    const std::optional<std::string>& title() const { return title_; }
    const std::optional<std::string>& message() const { return message_; }
    const std::vector<std::string>& buttonTitles() const { return buttonTitles_; }
    void addButtonWithTitle(std::string title);
    int tag() const { return tag_; }
    void setTag(int tag) { assign(tag_, tag); }

    void show();
    /// Called by the host when a person taps that button. Dismisses the alert, then notifies the delegate.
    void clickButtonAtIndex(std::size_t index);

  private:
    std::optional<std::string> title_;
    std::optional<std::string> message_;
    std::weak_ptr<UIAlertViewDelegate> delegate_;
    std::vector<std::string> buttonTitles_;
    int tag_ = 0;
};

} // namespace prismo
