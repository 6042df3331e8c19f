#pragma once

#include "platform/preferences/PSListController.h"
#include "screens/root/Prismo2PrefsListController.h"

#include <nlohmann/json.hpp>

namespace prismo::cli {

/// A row with all of its fields; `index` is its position in the page's list.
nlohmann::ordered_json json(PSSpecifier& row, std::size_t index);
/// The page on top: its title, class, scope and rows.
nlohmann::ordered_json json(PSListController& page);
/// The same for a page that is not a list of rows but shows these. `root` may be null.
nlohmann::ordered_json json(const PSViewController& page, const Prismo2PrefsListController* root,
                            const PSSpecifierList& rows);

} // namespace prismo::cli
