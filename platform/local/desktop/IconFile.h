#pragma once

#include <gio/gio.h>
#include <string>

namespace prismo {

/// The PNG file of an application's icon, or "". Of the icon themes only the common fall-back is looked
/// at, into which every application puts its icon.
std::string iconFile(GIcon* icon);

} // namespace prismo
