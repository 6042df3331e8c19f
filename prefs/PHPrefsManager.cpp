#include "prefs/PHPrefsManager.h"

#include "prefs/SettingsFile.h"

#include "platform/foundation/Device.h"
#include "platform/text/Text.h"

#include <filesystem>

namespace prismo {

const Class& PHPrefsManager::classObject() {
    static const Class objectClass(
        "PHPrefsManager", &NSObject::classObject(), [] { return std::make_shared<PHPrefsManager>(); },
        {method<&PHPrefsManager::readPreferenceValue>("readPreferenceValue:"),
         method<&PHPrefsManager::setPreferenceValue>("setPreferenceValue:specifier:")});
    return objectClass;
}

std::shared_ptr<PHPrefsManager> PHPrefsManager::initWithId(const std::string& identifier,
                                                           Dictionary defaultValues,
                                                           const std::optional<std::string>& notification,
                                                           const Callback* callback) {
    return initWithPath(formatted("/var/mobile/Library/Preferences/%@.plist", {identifier}),
                        std::move(defaultValues), notification, callback);
}

std::shared_ptr<PHPrefsManager> PHPrefsManager::initWithPath(std::string path, Dictionary defaultValues,
                                                             const std::optional<std::string>& notification,
                                                             const Callback* callback) {
    auto store = std::make_shared<PHPrefsManager>();
    store->plistPath_ = std::move(path);
    store->setDefaultValues(std::move(defaultValues));
    if (notification) {
        store->setNotificationName(notification);
        store->setNotificationCallback(callback);
        CFNotificationCenterGetDarwinNotifyCenter().addObserver(store, prefsManagerNotified, *notification,
                                                                SuspensionBehavior::coalesce);
    }
    store->updateCurrentImplementation();
    return store;
}

PHPrefsManager::~PHPrefsManager() {
    setDefaultValues({});
    setNotificationName(std::nullopt);
    setPlistPath("");
    setCurrentPrefsImplementation({});
}

void prefsManagerNotified(const std::shared_ptr<NSObject>& observer) {
    if (const auto store = std::dynamic_pointer_cast<PHPrefsManager>(observer)) store->notificationReceived();
}

std::string PHPrefsManager::identifier() const { return std::filesystem::path(plistPath_).stem(); }

void PHPrefsManager::setPlistPath(std::string path) {
    plistPath_ = std::move(path);
    updateCurrentImplementation();
}

void PHPrefsManager::updateCurrentImplementation() {
    auto values = defaultValues_;
    if (!plistPath_.empty())
        if (auto stored = Device::current().readPropertyList(plistPath_))
            for (auto& [key, value] : *stored)
                values.insert_or_assign(key, std::move(value));
    setCurrentPrefsImplementation(std::move(values));
}

void PHPrefsManager::notificationReceived() {
    updateCurrentImplementation();
    if (notificationCallback_ && *notificationCallback_) (*notificationCallback_)(*this);
}

const Value& PHPrefsManager::objectForKey(std::string_view key) const {
    return valueForKey(currentPrefsImplementation_, key);
}

void PHPrefsManager::setObject(const Value& value, const std::string& key) {
    if (!value.isNothing()) currentPrefsImplementation_.insert_or_assign(key, value);
}

void PHPrefsManager::removeObjectForKey(std::string_view key) {
    if (const auto found = currentPrefsImplementation_.find(key); found != currentPrefsImplementation_.end())
        currentPrefsImplementation_.erase(found);
}

void PHPrefsManager::save() {
    Device::current().writePropertyList(plistPath_, currentPrefsImplementation_, WriteMode::inPlace);
}

void PHPrefsManager::notifyEveryone() {
    if (notificationName_) CFNotificationCenterGetDarwinNotifyCenter().postNotification(*notificationName_);
}

void PHPrefsManager::saveAndNotify() {
    save();
    notifyEveryone();
}

Value PHPrefsManager::readPreferenceValue(const std::shared_ptr<PSSpecifier>& specifier) {
    if (!specifier) return {};
    auto value = settingForKey(currentPrefsImplementation_, keyOf(*specifier));
    return value.isNothing() ? specifier->propertyForKey("default") : value;
}

void PHPrefsManager::setPreferenceValue(const Value& value, const std::shared_ptr<PSSpecifier>& specifier) {
    const auto key = specifier ? keyOf(*specifier) : std::nullopt;
    if (!key) return;
    setObject(value, *key);
    saveAndNotify();
}

} // namespace prismo
