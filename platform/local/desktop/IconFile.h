#pragma once

#include <gio/gio.h>
#include <string>

namespace prismo {

/// The PNG file of an application's icon, or "". Of the icon themes, looks only at the common fallback, where
/// every application puts its icon.
std::string iconFile(GIcon* icon);

} // namespace prismo
