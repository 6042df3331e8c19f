#pragma once

#include "platform/uikit/controllers/UIViewController.h"
#include "platform/uikit/graphics/UIImage.h"

#include <memory>
#include <string>

namespace prismo {

/// Puts a borderless share button at the right end of the page's navigation bar, replacing any button there.
/// A tap opens the compose sheet with `shareText`. `image` may be null.
void FBAddTwitterShareButton(const std::shared_ptr<UIViewController>& controller,
                             std::shared_ptr<UIImage> image, std::string shareText);

} // namespace prismo
