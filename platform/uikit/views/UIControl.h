#pragma once

#include "platform/uikit/views/UIView.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace prismo {

/// What happened to a control; combine events with |. The values are the platform's.
enum UIControlEvents : std::uint32_t {
    UIControlEventTouchUpInside = 64,
    UIControlEventValueChanged = 4096,
};

/// A view that notifies its targets of what a person does with it. It does not keep them alive.
class UIControl : public UIView {
  public:
    using UIView::UIView;

    /// Sends `action` to `target`, with this control as the sender, on any of these events.
    void addTarget(const std::shared_ptr<NSObject>& target, std::string action, UIControlEvents events);
    /// True if a person can tap it: it has a superview, is not hidden, and is neither transparent nor fading
    /// out.
    bool takesTouches() const { return superview() && !isHidden() && alpha() > 0; }
    /// Called by the host when a person causes these events.
    void sendActionsForControlEvents(UIControlEvents events);

  private:
    struct Target {
        Message message;
        UIControlEvents events{};
    };
    std::vector<Target> targets_;
};

} // namespace prismo
