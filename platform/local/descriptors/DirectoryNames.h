#pragma once

#include <functional>

namespace prismo {

/// Calls `act` with each name in the open directory, from its current position on, in no particular order and
/// including "." and "..". Stops early if the directory cannot be read: what can be listed is enough for all
/// callers.
void forEachName(int directory, const std::function<void(const char* name)>& act);

} // namespace prismo
