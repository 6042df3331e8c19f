#pragma once

#include <string>

namespace prismo {

// Where a person's files are kept. A variable that is no absolute path counts as one that is not set, as the
// rules for these directories say; "" where nothing tells.

/// $XDG_DATA_HOME, else ~/.local/share.
std::string dataHome();
/// $XDG_STATE_HOME, else ~/.local/state.
std::string stateHome();
/// $XDG_RUNTIME_DIR, which is gone with the session.
std::string runtimeDirectory();

} // namespace prismo
