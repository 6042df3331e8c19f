#pragma once

#include "platform/foundation/NSObject.h"
#include "platform/preferences/PSSpecifier.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace prismo {

/// The preferences of one domain: a property-list file over default values, with a system-wide notification
/// by which all stores of the file learn of a change. It can be the target of settings rows.
///
/// Changes stay in memory until `save`, and a reload drops them. Failures are silent: a file that cannot be
/// read is an empty one. Belongs to the thread on which the notification is delivered.
class PHPrefsManager : public NSObject {
  public:
    using Callback = std::function<void(PHPrefsManager&)>;

    static const Class& classObject();
    const Class& isa() const override { return classObject(); }
    ~PHPrefsManager() override;

    /// A store of "/var/mobile/Library/Preferences/IDENTIFIER.plist". Without `notification` it neither posts
    /// nor observes, and no callback is kept. `callback` may be null; it is not copied, and outlives the
    /// store.
    static std::shared_ptr<PHPrefsManager> initWithId(const std::string& identifier, Dictionary defaultValues,
                                                      const std::optional<std::string>& notification,
                                                      const Callback* callback);

    /// The same of another file of the device.
    static std::shared_ptr<PHPrefsManager> initWithPath(std::string path, Dictionary defaultValues,
                                                        const std::optional<std::string>& notification,
                                                        const Callback* callback);

    /// The file's name without its directory and its extension.
    std::string identifier() const;

    const std::string& plistPath() const { return plistPath_; }
    /// Reloads at once; an empty path is that of no file.
    void setPlistPath(std::string path);
    /// The defaults, and over them what the file holds.
    void updateCurrentImplementation();
    /// Reloads, then calls the callback.
    void notificationReceived();

    // The live view: defaults, file and unsaved changes.

    const Value& objectForKey(std::string_view key) const;
    bool boolForKey(std::string_view key) const { return objectForKey(key).boolValue(); }
    float floatForKey(std::string_view key) const { return objectForKey(key).floatValue(); }
    std::int32_t intForKey(std::string_view key) const { return objectForKey(key).intValue(); }
    /// Does nothing for nothing, which no file could hold.
    void setObject(const Value& value, const std::string& key);
    void removeObjectForKey(std::string_view key);

    /// Writes the live view in place.
    void save();
    void notifyEveryone();
    void saveAndNotify();

    /// The live value of the row's "key", else the row's "default".
    Value readPreferenceValue(const std::shared_ptr<PSSpecifier>& specifier);
    /// Sets, saves and notifies; does nothing without a row or its key.
    void setPreferenceValue(const Value& value, const std::shared_ptr<PSSpecifier>& specifier);

    const Callback* notificationCallback() const { return notificationCallback_; }
    void setNotificationCallback(const Callback* callback) { notificationCallback_ = callback; }
    const Dictionary& defaultValues() const { return defaultValues_; }
    void setDefaultValues(Dictionary values) { defaultValues_ = std::move(values); }
    const std::optional<std::string>& notificationName() const { return notificationName_; }
    void setNotificationName(std::optional<std::string> name) { notificationName_ = std::move(name); }
    const Dictionary& currentPrefsImplementation() const { return currentPrefsImplementation_; }
    void setCurrentPrefsImplementation(Dictionary values) { currentPrefsImplementation_ = std::move(values); }

  private:
    const Callback* notificationCallback_ = nullptr;
    Dictionary defaultValues_;
    std::optional<std::string> notificationName_;
    Dictionary currentPrefsImplementation_;
    std::string plistPath_;
};

/// Tells a store of its notification; does nothing without one.
void prefsManagerNotified(const std::shared_ptr<NSObject>& observer);

} // namespace prismo
