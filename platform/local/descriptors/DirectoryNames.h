#pragma once

#include <functional>

namespace prismo {

/// Calls `act` with each name in the open directory, from where it stands, in no order; "." and ".." are
/// among them. Ends early where the directory cannot be read.
void forEachName(int directory, const std::function<void(const char* name)>& act);

} // namespace prismo
