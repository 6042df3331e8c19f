#pragma once

#include "platform/preferences/PSListController.h"
#include "platform/uikit/graphics/UIColor.h"

#include <memory>
#include <optional>

namespace prismo {

/// Tints the navigation bar's title and buttons, the view of the page on screen, and the controls inside
/// pages of the controller's class, and lets the page extend only under the bottom bar. Outside a split view
/// controller, only the extended edges and the controls change. Without a color, each tint goes back to the
/// system's own.
void FBSetPrefsTint(const std::shared_ptr<PSListController>& controller, std::optional<UIColor> tintColor);

/// Restores the plain look of the bar and the view, but not whatever they had before the tint: the bar's
/// background, which the tint never touches, goes back to the system's own, and the title turns black. The
/// edges and the controls stay as they are.
void FBResetPrefsTint(const std::shared_ptr<PSListController>& controller);

} // namespace prismo
