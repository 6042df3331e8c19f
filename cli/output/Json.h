#pragma once

#include "platform/foundation/Device.h"

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace prismo::cli {

/// Null for an empty text.
nlohmann::ordered_json textOrNull(const std::string& text);

/// Nothing is null; a class is its name, an image {"image": [width, height]}, a date its text in ISO 8601
/// (null before the year 1 and after 9999), data {"data": "…"} in hexadecimal, a UID {"uid": n}.
nlohmann::ordered_json json(const Value& value);
nlohmann::ordered_json json(const Effect& effect);
nlohmann::ordered_json json(const std::vector<Effect>& effects);

/// On one line, with control characters escaped. Bytes that are not UTF-8 become U+FFFD.
std::string jsonText(const nlohmann::ordered_json& document);

/// "write /User/…", "post com.…" and so on, for a person.
std::string effectLine(const Effect& effect);

} // namespace prismo::cli
