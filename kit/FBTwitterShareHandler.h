#pragma once

#include "kit/FBBarButtonItem.h"

#include <memory>

namespace prismo {

/// The target of every share button.
class FBTwitterShareHandler : public NSObject {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }

    /// The one handler of the process; safe to ask for from every thread.
    static const std::shared_ptr<FBTwitterShareHandler>& sharedInstance();

    /// Shows the compose sheet, with the button's text, from the button's page.
    void shareTapped(const std::shared_ptr<FBBarButtonItem>& sender);
};

} // namespace prismo
