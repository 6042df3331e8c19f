#pragma once

#include "platform/foundation/Value.h"

#include <string>

namespace prismo::cli {

/// "true", "false", a number, or text unchanged; "" for every other kind.
std::string valueText(const Value& value);
/// The same for a terminal; every other kind as JSON.
std::string shownText(const Value& value);

} // namespace prismo::cli
