#pragma once

#include "platform/foundation/Value.h"
#include "platform/preferences/PSSpecifier.h"

#include <optional>
#include <string>
#include <string_view>

namespace prismo {

/// Where all settings are: one property-list dictionary. It is never kept in memory; whoever reads or changes
/// a setting loads it afresh, and whoever changes one writes it whole.
inline constexpr const char* settingsFilePath = "/User/Library/Preferences/com.corvane.prismo2.plist";

/// The settings have changed: everyone who goes by them loads the file again. Posted system-wide.
inline constexpr const char* changeNotification = "com.corvane.prismo2.changed";

/// The entries of the settings file; none where it is missing or cannot be read.
Dictionary loadSettings();

/// Writes the settings file atomically. A failure is ignored.
void saveSettings(const Dictionary& settings);

/// The key of a setting, or none, under which nothing is found and nothing is stored.
using SettingsKey = std::optional<std::string>;

/// The key that this property of the row tells; none where the row has no such text.
SettingsKey keyOf(const PSSpecifier& row, const char* property = "key");

/// The key under which a setting is stored: `key` itself, or, while one application's settings are edited,
/// the application's identifier, "_" and `key`, where no key shows as "(null)". In application scope with no
/// application chosen it is `key` itself.
SettingsKey scopedKey(bool isInAppScope, const std::optional<std::string>& scopeId, const SettingsKey& key);

/// What is stored under the key, or nothing.
Value settingForKey(const Dictionary& settings, const SettingsKey& key);

/// Loads the settings, changes this one, and writes them.
void changeSetting(const std::string& key, const Value& value);

/// Posts the notification that the row names as its "PostNotification", if any. It comes after the writing,
/// so that whoever listens reads the new value.
void notifyOf(const PSSpecifier& row);

} // namespace prismo
