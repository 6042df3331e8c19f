// The root page's access to the settings file: which key a row reads and writes in which scope.

#include "prefs/SettingsFile.h"
#include "screens/root/Prismo2PrefsListController.h"

#include "platform/foundation/Device.h"

namespace prismo {

SettingsKey Prismo2PrefsListController::scopedKey(const SettingsKey& key) const {
    return prismo::scopedKey(isInAppScope_, scopeId_, key);
}

void Prismo2PrefsListController::settleAndReload() {
    Device::current().runLoop().run(Seconds(0.035));
    reloadSpecifiers();
}

Value Prismo2PrefsListController::readPreferenceValue(const std::shared_ptr<PSSpecifier>& specifier) {
    const auto settings = loadSettings();
    const auto baseKey = keyOf(*specifier);
    auto stored = settingForKey(settings, scopedKey(baseKey));
    if (!stored.isNothing()) return stored;
    // Not the default: an application without its own setting shows exactly what the system-wide settings
    // hold.
    if (isInAppScope_ && scopeId_) return settingForKey(settings, baseKey);
    return specifier->propertyForKey("default");
}

void Prismo2PrefsListController::setPreferenceValue(const Value& value,
                                                    const std::shared_ptr<PSSpecifier>& specifier) {
    const auto key = scopedKey(keyOf(*specifier));
    if (value.isNothing() || !key) return;
    changeSetting(*key, value);
    if (isInAppScope_ && key->ends_with("scope_enabled")) settleAndReload();
    notifyOf(*specifier);
}

Value Prismo2PrefsListController::readSegmentPreferenceValue(
    const std::shared_ptr<PSSpecifier>& /*specifier*/) {
    return isInAppScope_;
}

void Prismo2PrefsListController::setSegmentPreferenceValue(
    const Value& value, const std::shared_ptr<PSSpecifier>& /*specifier*/) {
    if (value.isNothing()) return;
    setIsInAppScope(value.boolValue());
    if (!isInAppScope_) setScopeId(std::nullopt);
    settleAndReload();
}

} // namespace prismo
