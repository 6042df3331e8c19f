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
    /// Its code is in the base layer; code comes from nowhere else.
    bool isLoadable = false;

    bool operator==(const PreferenceEntry&) const = default;
};

/// The entries of the device root's and the base layer's "/Library/PreferenceLoader/Preferences", by label.
/// Where both have a file of one name, the device root's counts.
std::vector<PreferenceEntry> findPreferenceEntries(LinuxDevice& device);

} // namespace prismo::settings
