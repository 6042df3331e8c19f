#pragma once

#include <string>

namespace prismo {

// Where a person's files are kept. A variable that is not an absolute path counts as unset, as the
// specification of these directories says. Each returns "" if the directory is unknown.

/// $XDG_DATA_HOME, else ~/.local/share.
std::string dataHome();
/// $XDG_STATE_HOME, else ~/.local/state.
std::string stateHome();
/// $XDG_RUNTIME_DIR, which goes away with the session.
std::string runtimeDirectory();

} // namespace prismo
