#pragma once

#include <string>
#include <vector>

namespace prismo {
class LinuxDevice;
}

namespace prismo::settings {

/// A settings bundle as the first page lists it.
struct PreferenceEntry {
    std::string label;
    /// "Prismo2Prefs".
    std::string bundle;
    /// The image's path on the device, or "".
    std::string iconPath;
    /// True if its code is in the base layer, the only place that code is loaded from.
    bool isLoadable = false;

    bool operator==(const PreferenceEntry&) const = default;
};

/// The entries in "/Library/PreferenceLoader/Preferences" of the device root and the base layer, sorted by
/// label. If both have a file with the same name, the device root's wins.
std::vector<PreferenceEntry> findPreferenceEntries(LinuxDevice& device);

} // namespace prismo::settings
