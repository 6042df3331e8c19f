#include "cli/pages/RowValue.h"

#include "cli/output/CommandError.h"
#include "cli/output/ValueText.h"
#include "prefs/SettingsFile.h"
#include "screens/root/PrismoColorCell.h"

#include "platform/swatchkit/ColorText.h"
#include "platform/swatchkit/SWColorAlert.h"
#include "platform/text/Text.h"
#include "platform/uikit/UIApplication.h"

#include <algorithm>
#include <array>

namespace prismo::cli {

namespace {

std::shared_ptr<SWLiteColorCell> colorCell(PSSpecifier& row) {
    const auto* cellClass = row.propertyForKey("cellClass").asClass();
    if (!cellClass || !cellClass->isSubclassOf(SWLiteColorCell::classObject())) return nullptr;
    auto cell = std::dynamic_pointer_cast<SWLiteColorCell>(cellClass->create());
    cell->setSpecifier(std::static_pointer_cast<PSSpecifier>(row.shared_from_this()));
    return cell;
}

std::shared_ptr<PSSpecifier> findRow(Prismo2PrefsListController& page, std::string_view key) {
    const auto colorKey = *scopedKey(page.isInAppScope(), page.scopeId(), std::string(key));
    const auto rows = page.rows();
    const auto found = std::ranges::find_if(*rows, [&](const auto& row) {
        return row->propertyForKey("key") == Value(key) ||
               row->propertyForKey("prismo_key") == Value(colorKey);
    });
    return found == rows->end() ? nullptr : *found;
}

bool isKeyOfSomeScope(std::string_view key) {
    const auto systemPage = std::make_shared<Prismo2PrefsListController>();
    const auto appPage = std::make_shared<Prismo2PrefsListController>();
    appPage->setIsInAppScope(true);
    appPage->setScopeId("any");
    return findRow(*systemPage, key) || findRow(*appPage, key);
}

[[noreturn]] void refuse(const std::string& text, const std::string& expected) {
    throw CommandError(wrongUsage, "'" + text + "' is not " + expected);
}

bool switchValue(const std::string& text) {
    constexpr std::array on{"true", "on", "yes", "1"};
    constexpr std::array off{"false", "off", "no", "0"};
    if (std::ranges::find(on, text) != on.end()) return true;
    if (std::ranges::find(off, text) == off.end()) refuse(text, "one of true false on off yes no 1 0");
    return false;
}

} // namespace

std::optional<UIColor> swatchOfRow(PSSpecifier& row) {
    const auto cell = colorCell(row);
    return cell ? std::optional(cell->swatch()) : std::nullopt;
}

std::shared_ptr<PSSpecifier> rowForKey(Prismo2PrefsListController& page, std::string_view key) {
    if (auto row = findRow(page, key)) return row;
    if (!isKeyOfSomeScope(key)) throw CommandError(wrongUsage, "unknown key '" + std::string(key) + "'");
    throw CommandError(nothingThere, "no row for '" + std::string(key) + "' in this scope");
}

std::shared_ptr<PSSpecifier> rowForElement(Prismo2PrefsListController& page, const std::string& element,
                                           const char* suffix) {
    const auto key = element + suffix;
    if (!isKeyOfSomeScope(key))
        throw CommandError(wrongUsage, "unknown element '" + element + "', not one of " + elementNames);
    return rowForKey(page, key);
}

Value shownValue(PSSpecifier& row) {
    const auto cell = std::dynamic_pointer_cast<PrismoColorCell>(colorCell(row));
    if (!cell) {
        auto value = row.performGetter();
        // Whatever the file holds, a switch is on or off.
        return row.cellType() == PSCellType::switchCell && !value.isNothing() ? Value(value.boolValue())
                                                                              : value;
    }
    const auto settings = loadSettings();
    auto stored = settingForKey(settings, cell->prefKey());
    return colorFromText(stored.text()) ? stored : cell->defaultColorFB();
}

Value choiceFromText(const PSTitles& titles, const std::string& text) {
    std::string expected = "one of";
    for (const auto& [value, title] : titles) {
        const auto* flag = value.as<bool>();
        if (text == valueText(value) || (flag && text == (*flag ? "1" : "0")) ||
            lowercased(text) == lowercased(title))
            return value;
        expected += " " + valueText(value) + " '" + lowercased(title) + "'";
    }
    refuse(text, expected);
}

UIColor colorArgument(const std::string& text) {
    const auto color = colorFromText(text);
    if (!color)
        refuse(text,
               "a color: rrggbb or rgb, with or without '#', with or without ':' and an alpha from 0 to 1");
    return *color;
}

void pickColor(PSSpecifier& row, const UIColor& color) {
    row.performButtonAction();
    const auto picker = topmostPresented<SWColorAlert>();
    picker->setColor(color);
    picker->accept();
}

void writeThroughRow(PSSpecifier& row, const std::string& text) {
    if (colorCell(row))
        pickColor(row, colorArgument(text));
    else if (row.cellType() == PSCellType::switchCell)
        row.performSetterWithValue(switchValue(lowercased(text)));
    else
        row.performSetterWithValue(choiceFromText(row.titleDictionary(), text));
}

} // namespace prismo::cli
