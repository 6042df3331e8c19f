#include "platform/uikit/views/UIControl.h"

namespace prismo {

void UIControl::addTarget(const std::shared_ptr<NSObject>& target, std::string action,
                          UIControlEvents events) {
    targets_.push_back({{target, std::move(action)}, events});
    changed();
}

void UIControl::sendActionsForControlEvents(UIControlEvents events) {
    // Iterates over a copy: an action may add a target.
    for (const auto& [message, wanted] : std::vector(targets_))
        if ((wanted & events) != 0)
            if (const auto target = message.target.lock())
                target->performSelector(message.selector, {shared_from_this()}, "control action");
}

} // namespace prismo
