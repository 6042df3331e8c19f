#pragma once

#include "platform/foundation/Value.h"
#include "platform/preferences/PSSpecifier.h"

#include <string>
#include <vector>

namespace prismo {

/// Everything that a row holds but its target, on one line, so that rows compare as text:
/// `switch "Prismo Enabled" id=enabled set=… get=… default=true key="enabled"`. What is empty is left out;
/// the kind of a value shows (true, 1, 1.0, "1").
std::string rowText(const PSSpecifier& row);
std::vector<std::string> rowTexts(const PSSpecifierList& rows);

std::string valueText(const Value& value);

} // namespace prismo
