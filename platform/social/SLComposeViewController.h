#pragma once

#include "platform/social/SLServiceType.h"
#include "platform/uikit/controllers/UIViewController.h"

#include <memory>
#include <string>

namespace prismo {

/// The sheet for writing a post, as state. A host draws it while it is presented and ends it with `send` or
/// `dismiss`.
class SLComposeViewController : public UIViewController {
  public:
    explicit SLComposeViewController(SLServiceType service) : service_(service) {}
    static std::shared_ptr<SLComposeViewController>
    composeViewControllerForServiceType(SLServiceType service);

    SLServiceType serviceType() const { return service_; }
    /// The name that people know the service by.
    std::string serviceName() const;
    /// The current text: the initial text and whatever the person has made of it.
    const std::string& text() const { return text_; }
    void setInitialText(std::string text) { assign(text_, std::move(text)); }
    void setText(std::string text) { assign(text_, std::move(text)); }

    /// Opens the service's web page for a new post, with the text filled in, and dismisses the sheet.
    void send();
    void dismiss();

  private:
    SLServiceType service_;
    std::string text_;
};

} // namespace prismo
