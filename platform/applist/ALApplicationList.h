#pragma once

#include "platform/foundation/Value.h"
#include "platform/uikit/graphics/UIImage.h"

#include <memory>
#include <string>
#include <string_view>

namespace prismo {

/// The device's installed applications, looked up by display identifier.
class ALApplicationList {
  public:
    static ALApplicationList& sharedApplicationList();

    /// The value under "displayName" or "isSystemApplication"; nothing for any other key or if the
    /// application is not installed.
    Value valueForKey(std::string_view key, std::string_view displayIdentifier) const;
    /// The icon as a square of `size` points; null if the application is not installed or has no readable
    /// icon.
    std::shared_ptr<UIImage> iconOfSize(double size, std::string_view displayIdentifier) const;
};

} // namespace prismo
