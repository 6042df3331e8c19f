#pragma once

#include "platform/uikit/controllers/UIBarButtonItem.h"
#include "platform/uikit/controllers/UIViewController.h"

#include <memory>
#include <string>

namespace prismo {

/// A share button: the text to share and the page that presents the compose sheet. The page owns the button
/// through its navigation item; the button does not keep the page alive.
class FBBarButtonItem : public UIBarButtonItem {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }

    const std::string& shareText() const { return shareText_; }
    void setShareText(std::string text) { assign(shareText_, std::move(text)); }
    std::shared_ptr<UIViewController> container() const { return container_.lock(); }
    void setContainer(const std::shared_ptr<UIViewController>& container) { assign(container_, container); }

  private:
    std::string shareText_;
    std::weak_ptr<UIViewController> container_;
};

} // namespace prismo
