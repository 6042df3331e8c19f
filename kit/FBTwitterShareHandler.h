#pragma once

#include "kit/FBBarButtonItem.h"

#include <memory>

namespace prismo {

/// The target of every share button.
class FBTwitterShareHandler : public NSObject {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }

    /// The only handler of the process. Callable from any thread.
    static const std::shared_ptr<FBTwitterShareHandler>& sharedInstance();

    /// Presents the compose sheet, with the button's text, from the button's page. Does nothing if that page
    /// is gone.
    void shareTapped(const std::shared_ptr<FBBarButtonItem>& sender);
};

} // namespace prismo
