#pragma once

#include "platform/foundation/Device.h"
#include "platform/preferences/PSListController.h"
#include "screens/root/Prismo2PrefsListController.h"

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace prismo::cli {

/// Nothing is null; a class is its name, an image {"image": [width, height]}, a date its text in ISO 8601
/// (null before the year 1 and after 9999), data {"data": "…"} in hexadecimal, a UID {"uid": n}.
nlohmann::ordered_json json(const Value& value);
nlohmann::ordered_json json(const Effect& effect);
nlohmann::ordered_json json(const std::vector<Effect>& effects);

/// A row with all of its fields; `index` is its position in the page's list.
nlohmann::ordered_json json(PSSpecifier& row, std::size_t index);
/// The page on top: its title, class, scope and rows.
nlohmann::ordered_json json(PSListController& page);
/// The same for a page that shows these rows in another way than a list of them. `root` may be null.
nlohmann::ordered_json json(const PSViewController& page, const Prismo2PrefsListController* root,
                            const PSSpecifierList& rows);

/// In one line, control characters escaped. Bytes that are no UTF-8 become U+FFFD.
std::string jsonText(const nlohmann::ordered_json& document);

/// "write /User/…", "post com.…" and so on, for a person.
std::string effectLine(const Effect& effect);

} // namespace prismo::cli
