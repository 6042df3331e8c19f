#pragma once

#include "platform/foundation/Value.h"
#include "platform/preferences/PSSpecifier.h"

#include <string>
#include <vector>

namespace prismo {

/// Everything in a row except its target, on one line, so that rows can be compared as text: `switch "Prismo
/// Enabled" id=enabled set=… get=… default=true key="enabled"`. Empty fields are left out. Values show their
/// kind (true, 1, 1.0, "1").
std::string rowText(const PSSpecifier& row);
std::vector<std::string> rowTexts(const PSSpecifierList& rows);

std::string valueText(const Value& value);

} // namespace prismo
