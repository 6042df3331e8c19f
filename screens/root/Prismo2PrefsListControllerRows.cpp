// The rows of the root page, in order.

#include "kit/FBVersionCopyrightSpecifier.h"
#include "prefs/SettingsFile.h"
#include "screens/colortype/PrismoTypeItemsController.h"
#include "screens/root/Prismo2PrefsListController.h"

#include "platform/applist/ALApplicationList.h"
#include "platform/text/Text.h"

#include <iterator>

namespace prismo {

namespace {

constexpr const char* fallbackColor = "#de3027";
constexpr double iconSize = 59; // points
// Positions in the rows of a color group.
constexpr std::size_t groupRow = 0;
constexpr std::size_t colorRow = 1;
constexpr std::size_t typeRow = 2;

std::optional<std::string> displayName(const std::string& displayIdentifier) {
    const auto name =
        ALApplicationList::sharedApplicationList().valueForKey("displayName", displayIdentifier);
    return name.isNothing() ? std::nullopt : std::optional(name.text());
}

void append(PSSpecifierList& list, const PSSpecifierList& rows) {
    list.insert(list.end(), rows.begin(), rows.end());
}

void retitle(const PSSpecifierList& group, const char* name) {
    if (group[colorRow]->name() != usingGlobalColorName) group[colorRow]->setName(name);
}

} // namespace

std::shared_ptr<PSSpecifier>
Prismo2PrefsListController::switchNamed(const std::string& name, const std::string& key, bool defaultValue) {
    auto row = PSSpecifier::preferenceSpecifierNamed(
        name, sharedSelf<Prismo2PrefsListController>(),
        "setPreferenceValue:specifier:", "readPreferenceValue:", nullptr, PSCellType::switchCell, nullptr);
    row->setIdentifier(key);
    row->setProperty(key, "key");
    row->setProperty(defaultValue, "default");
    row->setProperty(changeNotification, "PostNotification");
    return row;
}

std::shared_ptr<PSSpecifier> Prismo2PrefsListController::buttonNamed(const std::string& name,
                                                                     const std::string& action) {
    auto row = PSSpecifier::preferenceSpecifierNamed(name, sharedSelf<Prismo2PrefsListController>(), "", "",
                                                     nullptr, PSCellType::button, nullptr);
    row->setIdentifier(action);
    row->setButtonAction(action);
    return row;
}

PSSpecifierList Prismo2PrefsListController::scopeRows() {
    const auto self = sharedSelf<Prismo2PrefsListController>();
    auto scopeGroup = PSSpecifier::groupSpecifierWithName("Scope");
    scopeGroup->setProperty("All settings below are system-wide.", "footerText");
    auto segment = PSSpecifier::preferenceSpecifierNamed(
        "Scope", self, "setSegmentPreferenceValue:specifier:", "readSegmentPreferenceValue:", nullptr,
        PSCellType::segment, nullptr);
    segment->setValues({false, true}, {"System", "Application"});
    PSSpecifierList rows{scopeGroup, segment};
    if (!isInAppScope_) return rows;

    scopeGroup->setProperty("", "footerText");
    const auto appGroup = PSSpecifier::groupSpecifierWithName("Selected App");
    const auto name = scopeId_ ? displayName(*scopeId_) : std::nullopt;
    const auto currentApp = PSSpecifier::preferenceSpecifierNamed(
        scopeId_ ? name.value_or("") : "No App Selected", self, "", "", NSClassFromString("Prismo2AppScope"),
        PSCellType::link, nullptr);
    currentApp->setIdentifier("currentAppCell");
    append(rows, {appGroup, currentApp});
    if (!scopeId_) {
        appGroup->setProperty("Please select an app to change settings.", "footerText");
        return rows;
    }
    appGroup->setProperty(formatted("All settings below only effect the %@ app.", {name}), "footerText");
    currentApp->setProperty(ALApplicationList::sharedApplicationList().iconOfSize(iconSize, *scopeId_),
                            "iconImage");
    currentApp->setProperty(100, "height");
    rows.push_back(switchNamed(formatted("Custom %@ Settings Enabled", {name}), "scope_enabled", false));
    return rows;
}

std::shared_ptr<PSSpecifierList> Prismo2PrefsListController::specifiers() {
    if (specifiers_) return specifiers_;
    auto list = std::make_shared<PSSpecifierList>(scopeRows());
    specifiers_ = list;
    if (isInAppScope_ && !scopeId_) return list;
    const auto appSwitch = isInAppScope_ ? list->back() : nullptr;

    const auto global = colorGroupSpecifierWithTitle("Global", fallbackColor);
    global[groupRow]->setProperty("Main color that is used throughout Prismo.", "footerText");
    const PSTitles globalTitles{{0, "Global"}, {1, "Icon Color"}};
    global[typeRow]->setDetailControllerClass(&PrismoGlobalTypeItemsController::classObject());
    global[typeRow]->setShortTitleDictionary(globalTitles);
    global[typeRow]->setTitleDictionary(globalTitles);
    global[typeRow]->setProperty(changeNotification, "PostNotification");
    // Ahead of the color group's own group row, so that the switch is the last row of the section above.
    const auto masterSwitchIndex = list->size();
    list->push_back(switchNamed("Prismo Enabled", "enabled", true));
    append(*list, global);

    for (const auto* title : {"Keyboard", "StatusBar", "SMS"})
        append(*list, colorGroupSpecifierWithTitle(title, fallbackColor));
    const auto appendRetitled = [&](const char* title, const char* colorName) {
        const auto group = colorGroupSpecifierWithTitle(title, fallbackColor);
        retitle(group, colorName);
        append(*list, group);
    };
    appendRetitled("NC", "Notification Center Color");
    appendRetitled("CC", "Control Center Color");
    appendRetitled("Volume", "Volume HUD Color");
    if (!isInAppScope_) appendRetitled("Folder", "Folder Color");

    if (appSwitch) {
        // If nothing is stored, the rows stay enabled even though the switch shows off.
        const auto enabled = readPreferenceValue(appSwitch);
        if (!enabled.isNothing() && !enabled.boolValue())
            for (auto i = masterSwitchIndex + 1; i < list->size(); ++i)
                (*list)[i]->setProperty(false, "enabled");
    }

    append(*list, {PSSpecifier::groupSpecifierWithName("More"),
                   buttonNamed("Change Boot Logo Color (Cydia)", "splashtoner"),
                   buttonNamed("Clear Icon Color Cache", "clearIconColorCache")});
    if (!isInAppScope_)
        append(*list, {PSSpecifier::groupSpecifierWithHeader(
                           "", "Override NC, CC, and Volume HUD with the now playing artwork average color."),
                       switchNamed("Album Art Color for NC|CC|HUD", "use_album_art", false)});
    list->push_back(FBVersionCopyrightSpecifier("com.corvane.prismo2", "quillmoth", "2016"));
    return list;
}

} // namespace prismo
