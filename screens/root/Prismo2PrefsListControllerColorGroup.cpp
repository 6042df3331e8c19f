// The three rows on the root page for each element that can be colored.

#include "prefs/SettingsFile.h"
#include "screens/colortype/PrismoTypeItemsController.h"
#include "screens/root/Prismo2PrefsListController.h"
#include "screens/root/PrismoColorCell.h"

#include "platform/text/Text.h"

#include <algorithm>

namespace prismo {

PSSpecifierList Prismo2PrefsListController::colorGroupSpecifierWithTitle(const std::string& title,
                                                                         const std::string& fallbackColor) {
    const auto self = sharedSelf<Prismo2PrefsListController>();
    auto group = PSSpecifier::groupSpecifierWithName(title);

    auto colorRow = PSSpecifier::preferenceSpecifierNamed(
        formatted("%@ Color", {title}), self,
        "setPreferenceValue:specifier:", "readPreferenceValue:", nullptr, PSCellType::link, nullptr);
    colorRow->setProperty(fallbackColor, "prismo_dc");
    colorRow->setProperty(PrismoColorCell::classObject(), "cellClass");
    colorRow->setProperty(changeNotification, "PostNotification");
    colorRow->setProperty(changeNotification, "NotificationListener");
    colorRow->setButtonAction("chooseColor:");
    auto slug = lowercased(title);
    std::ranges::replace(slug, ' ', '_');
    // Scoped now rather than on use: the picker stores the color without going through the page's setter.
    colorRow->setProperty(*scopedKey(formatted("%@_color", {slug})), "prismo_key");

    auto typeRow = PSSpecifier::preferenceSpecifierNamed(
        formatted("%@ Enabled", {title}), self,
        "setPreferenceValue:specifier:", "readPreferenceValue:", &PrismoTypeItemsController::classObject(),
        PSCellType::linkList, nullptr);
    typeRow->setProperty(changeNotification, "PostNotification");
    typeRow->setProperty(formatted("%@_color_type", {slug}), "key");
    const PSTitles titles{{0, "Global"}, {1, "Disabled"}, {2, "Custom"}};
    typeRow->setTitleDictionary(titles);
    typeRow->setShortTitleDictionary(titles);
    typeRow->setProperty(0, "default");

    // The global color itself has nothing to follow.
    if (slug != "global") {
        const auto type = readPreferenceValue(typeRow);
        const bool followsGlobal = type.isNothing() || type.isEqual(0);
        if (followsGlobal) colorRow->setName(usingGlobalColorName);
        if (followsGlobal || type.isEqual(1)) colorRow->setProperty(false, "enabled");
    }
    return {std::move(group), std::move(colorRow), std::move(typeRow)};
}

} // namespace prismo
