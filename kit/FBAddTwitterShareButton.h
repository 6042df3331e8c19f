#pragma once

#include "platform/uikit/controllers/UIViewController.h"
#include "platform/uikit/graphics/UIImage.h"

#include <memory>
#include <string>

namespace prismo {

/// Puts a borderless share button at the right end of the page's navigation bar, in place of what was there.
/// A tap on it offers `shareText` on the compose sheet. `image` may be null.
void FBAddTwitterShareButton(const std::shared_ptr<UIViewController>& controller,
                             std::shared_ptr<UIImage> image, std::string shareText);

} // namespace prismo
