#pragma once

#include "platform/preferences/PSListController.h"
#include "platform/uikit/graphics/UIColor.h"

#include <memory>
#include <optional>

namespace prismo {

/// Gives the navigation bar's title and buttons, the view of the page on screen and the controls inside pages
/// of the controller's class that colour. Outside a split view controller only the page's edges and the
/// controls are touched. Without a colour each goes back to the system's own.
void FBSetPrefsTint(const std::shared_ptr<PSListController>& controller, std::optional<UIColor> tintColor);

/// Gives the bar and the view their plain look. What was there before the tint is not known: the bar's
/// background, which the tint never touched, goes back to the system's own, the title to black; the edges and
/// the controls stay as they are.
void FBResetPrefsTint(const std::shared_ptr<PSListController>& controller);

} // namespace prismo
