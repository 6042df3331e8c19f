#pragma once

#include "platform/foundation/Value.h"

#include <string>

namespace prismo::cli {

/// "true", "false", a number or a text as it is; "" for every other kind.
std::string valueText(const Value& value);
/// The same for a terminal; a value of every other kind as JSON.
std::string shownText(const Value& value);

} // namespace prismo::cli
