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

/// The preferences of one domain: a property-list file merged over default values. A system-wide notification
/// tells every store of the same file to reload. A store can be the target of settings rows.
///
/// Changes stay in memory until `save`; a reload discards them. Failures are silent: an unreadable file reads
/// as empty. Use a store only on the thread that delivers its notification.
class PHPrefsManager : public NSObject {
  public:
    using Callback = std::function<void(PHPrefsManager&)>;

    static const Class& classObject();
    const Class& isa() const override { return classObject(); }
    ~PHPrefsManager() override;

    /// Makes a store for "/var/mobile/Library/Preferences/IDENTIFIER.plist". Without `notification` the store
    /// neither posts nor observes, and it keeps no callback. `callback` may be null; it is not copied and
    /// must outlive the store.
    static std::shared_ptr<PHPrefsManager> initWithId(const std::string& identifier, Dictionary defaultValues,
                                                      const std::optional<std::string>& notification,
                                                      const Callback* callback);

    /// Like `initWithId`, for any file of the device.
    static std::shared_ptr<PHPrefsManager> initWithPath(std::string path, Dictionary defaultValues,
                                                        const std::optional<std::string>& notification,
                                                        const Callback* callback);

    /// The name of the file, without its directory and its extension.
    std::string identifier() const;

    const std::string& plistPath() const { return plistPath_; }
    /// Reloads at once. An empty path means no file.
    void setPlistPath(std::string path);
    /// Reloads the live view: the defaults, overlaid with the file's entries.
    void updateCurrentImplementation();
    /// Reloads, then calls the callback.
    void notificationReceived();

    // The live view: defaults, file and unsaved changes. A missing key reads as nothing, false or 0.

    const Value& objectForKey(std::string_view key) const;
    bool boolForKey(std::string_view key) const { return objectForKey(key).boolValue(); }
    float floatForKey(std::string_view key) const { return objectForKey(key).floatValue(); }
    std::int32_t intForKey(std::string_view key) const { return objectForKey(key).intValue(); }
    /// Ignores nothing, the empty `Value`, which no file could hold.
    void setObject(const Value& value, const std::string& key);
    void removeObjectForKey(std::string_view key);

    /// Writes the live view to the file in place, not atomically.
    void save();
    void notifyEveryone();
    void saveAndNotify();

    /// The live value under the row's "key", or else the row's "default".
    Value readPreferenceValue(const std::shared_ptr<PSSpecifier>& specifier);
    /// Sets the value, saves and notifies. Does nothing without a row or a key.
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

/// The callback of the notification: the observing store reloads. Does nothing if the observer is not a
/// store.
void prefsManagerNotified(const std::shared_ptr<NSObject>& observer);

} // namespace prismo
