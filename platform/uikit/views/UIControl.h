#pragma once

#include "platform/uikit/views/UIView.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace prismo {

/// What happened to a control. The numbers are the platform's.
enum UIControlEvents : std::uint32_t {
    UIControlEventTouchUpInside = 64,
    UIControlEventValueChanged = 4096,
};

/// A view that tells its targets what a person does with it. Targets are not kept alive.
class UIControl : public UIView {
  public:
    using UIView::UIView;

    /// Sends `action` to `target`, with this control as sender, for each of these events.
    void addTarget(const std::shared_ptr<NSObject>& target, std::string action, UIControlEvents events);
    /// Can a person hit it? It is somewhere, not hidden, and neither transparent nor on its way to that.
    bool takesTouches() const { return superview() && !isHidden() && alpha() > 0; }
    /// A person has done that; called by the host.
    void sendActionsForControlEvents(UIControlEvents events);

  private:
    struct Target {
        Message message;
        UIControlEvents events{};
    };
    std::vector<Target> targets_;
};

} // namespace prismo
