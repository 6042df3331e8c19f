#include "prefs/SettingsFile.h"

#include "platform/foundation/CFNotificationCenter.h"
#include "platform/foundation/Device.h"
#include "platform/text/Text.h"

namespace prismo {

Dictionary loadSettings() {
    return Device::current().readPropertyList(settingsFilePath).value_or(Dictionary());
}

void saveSettings(const Dictionary& settings) {
    Device::current().writePropertyList(settingsFilePath, settings, WriteMode::atomically);
}

SettingsKey keyOf(const PSSpecifier& row, const char* property) {
    const auto* key = row.propertyForKey(property).as<std::string>();
    return key ? SettingsKey(*key) : std::nullopt;
}

SettingsKey scopedKey(bool isInAppScope, const std::optional<std::string>& scopeId, const SettingsKey& key) {
    return isInAppScope && scopeId ? formatted("%@_%@", {scopeId, key}) : key;
}

Value settingForKey(const Dictionary& settings, const SettingsKey& key) {
    return key ? valueForKey(settings, *key) : Value();
}

void changeSetting(const std::string& key, const Value& value) {
    auto settings = loadSettings();
    settings.insert_or_assign(key, value);
    saveSettings(settings);
}

void notifyOf(const PSSpecifier& row) {
    const auto& notification = row.propertyForKey("PostNotification").text();
    if (!notification.empty()) CFNotificationCenterGetDarwinNotifyCenter().postNotification(notification);
}

} // namespace prismo
