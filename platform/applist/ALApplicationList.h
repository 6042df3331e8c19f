#pragma once

#include "platform/foundation/Value.h"
#include "platform/uikit/graphics/UIImage.h"

#include <memory>
#include <string>
#include <string_view>

namespace prismo {

/// What is known of the device's installed applications, by display identifier.
class ALApplicationList {
  public:
    static ALApplicationList& sharedApplicationList();

    /// The value under "displayName" or "isSystemApplication"; nothing for another key or an application that
    /// is not installed.
    Value valueForKey(std::string_view key, std::string_view displayIdentifier) const;
    /// The icon in a square of `size` points, or null where the application has none.
    std::shared_ptr<UIImage> iconOfSize(double size, std::string_view displayIdentifier) const;
};

} // namespace prismo
