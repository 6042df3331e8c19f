#pragma once

#include "platform/uikit/graphics/Geometry.h"
#include "platform/uikit/graphics/UIImage.h"

#include <memory>

namespace prismo {

/// Opens a blank image context of this size, in points, on top of those already open. A `scale` of 0 means
/// that of the main screen.
void UIGraphicsBeginImageContextWithOptions(CGSize size, UIGraphicsOpacity opacity, double scale);
/// The current image of the topmost context; null if none is open.
std::shared_ptr<UIImage> UIGraphicsGetImageFromCurrentImageContext();
void UIGraphicsEndImageContext();

} // namespace prismo
