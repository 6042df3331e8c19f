#include "cli/pages/PageJson.h"

#include "cli/output/Json.h"
#include "cli/pages/RowValue.h"

#include "platform/swatchkit/ColorText.h"

namespace prismo::cli {

using nlohmann::ordered_json;

namespace {

ordered_json choices(const PSSpecifier& row) {
    ordered_json result = ordered_json::array();
    const auto add = [&](const Value& value, const std::string& title, const std::string& shortTitle) {
        result.push_back({{"value", json(value)}, {"title", title}, {"shortTitle", shortTitle}});
    };
    if (row.cellType() == PSCellType::listItem)
        for (const auto& value : row.values())
            add(value, row.name(), row.name());
    if (row.cellType() == PSCellType::segment || row.cellType() == PSCellType::linkList)
        for (const auto& [value, title] : row.titleDictionary())
            add(value, title, titleForValue(row.shortTitleDictionary(), value));
    return result;
}

} // namespace

ordered_json json(PSSpecifier& row, std::size_t index) {
    const auto swatch = swatchOfRow(row);
    const auto* detail = row.detailControllerClass();
    return {
        {"index", index},
        {"cell", cellTypeName(row.cellType())},
        {"name", row.name()},
        {"identifier", textOrNull(row.identifier())},
        {"setter", textOrNull(row.setter())},
        {"getter", textOrNull(row.getter())},
        {"action", textOrNull(row.buttonAction())},
        {"detail", textOrNull(detail ? detail->name() : "")},
        {"value", json(row.performGetter())},
        {"enabled", row.isEnabled()},
        {"choices", choices(row)},
        {"properties", json(Value(row.properties()))},
        {"swatch", swatch ? ordered_json(hexFromColor(*swatch)) : ordered_json()},
    };
}

ordered_json json(PSListController& page) {
    const auto* root = dynamic_cast<const Prismo2PrefsListController*>(&page);
    if (!root)
        if (const auto parent = page.parentController())
            root = dynamic_cast<const Prismo2PrefsListController*>(parent.get());
    return json(page, root, *page.rows());
}

ordered_json json(const PSViewController& page, const Prismo2PrefsListController* root,
                  const PSSpecifierList& rows) {
    ordered_json list = ordered_json::array();
    for (const auto& row : rows)
        list.push_back(json(*row, list.size()));
    const auto scopeId = root ? root->scopeId() : std::nullopt;
    return {
        {"page", page.title()},
        {"class", page.isa().name()},
        {"scope",
         {{"inApp", root && root->isInAppScope()},
          {"app", scopeId ? ordered_json(*scopeId) : ordered_json()}}},
        {"rows", std::move(list)},
    };
}

} // namespace prismo::cli
