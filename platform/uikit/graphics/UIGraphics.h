#pragma once

#include "platform/uikit/graphics/Geometry.h"
#include "platform/uikit/graphics/UIImage.h"

#include <memory>

namespace prismo {

/// Opens a drawing of that size, in points, on top of those that are open; it starts out empty. A `scale` of
/// 0 is the main screen's own.
void UIGraphicsBeginImageContextWithOptions(CGSize size, UIGraphicsOpacity opacity, double scale);
/// What the topmost drawing shows now; null where none is open.
std::shared_ptr<UIImage> UIGraphicsGetImageFromCurrentImageContext();
void UIGraphicsEndImageContext();

} // namespace prismo
