#pragma once

#include "platform/foundation/Value.h"
#include "platform/preferences/PSSpecifier.h"

#include <optional>
#include <string>
#include <string_view>

namespace prismo {

/// The file that holds all settings: one property-list dictionary. It is never cached: every read loads it
/// again, and every change writes it whole.
inline constexpr const char* settingsFilePath = "/User/Library/Preferences/com.corvane.prismo2.plist";

/// Posted system-wide after every change to the settings file. Every listener loads the file again.
inline constexpr const char* changeNotification = "com.corvane.prismo2.changed";

/// The entries of the settings file; empty if the file is missing or unreadable.
Dictionary loadSettings();

/// Writes the settings file atomically and ignores failures.
void saveSettings(const Dictionary& settings);

/// The key of a setting. With nullopt, nothing is found and nothing is stored.
using SettingsKey = std::optional<std::string>;

/// The key in the given property of the row; nullopt if the property is missing or not a text.
SettingsKey keyOf(const PSSpecifier& row, const char* property = "key");

/// The key under which a setting is stored. In system scope, and in application scope with no application
/// chosen, this is `key` itself. Otherwise it is the application's identifier, "_" and `key`; a missing key
/// shows there as "(null)".
SettingsKey scopedKey(bool isInAppScope, const std::optional<std::string>& scopeId, const SettingsKey& key);

/// The value stored under the key, or nothing (the empty `Value`).
Value settingForKey(const Dictionary& settings, const SettingsKey& key);

/// Loads the settings, changes this one, and writes them back.
void changeSetting(const std::string& key, const Value& value);

/// Posts the notification that the row names as its "PostNotification", if any. Call it after writing, so
/// that listeners read the new value.
void notifyOf(const PSSpecifier& row);

} // namespace prismo
