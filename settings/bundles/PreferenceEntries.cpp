#include "settings/bundles/PreferenceEntries.h"

#include "platform/applist/NameOrder.h"
#include "platform/linux/LinuxDevice.h"
#include "platform/local/descriptors/DirectoryNames.h"
#include "platform/local/installation/BaseLayer.h"
#include "platform/local/installation/PreferenceBundle.h"
#include "platform/plist/PropertyListReader.h"

#include <algorithm>
#include <fcntl.h>
#include <map>
#include <optional>
#include <system_error>

namespace prismo::settings {

namespace {

constexpr const char* entryDirectory = "/Library/PreferenceLoader/Preferences";

std::vector<std::string> entryFiles(const DeviceRoot& root) {
    std::vector<std::string> names;
    const auto directory = root.open(entryDirectory, O_RDONLY | O_DIRECTORY);
    if (!directory) return names;
    forEachName(directory.get(), [&](const std::string& name) {
        if (!name.starts_with('.') && name.ends_with(".plist")) names.push_back(name);
    });
    return names;
}

std::optional<PreferenceEntry> readEntry(LinuxDevice& device, const DeviceRoot* base,
                                         const std::string& file) {
    const auto bytes = device.readFile(std::string(entryDirectory) + "/" + file);
    const auto content = bytes ? readDictionary(*bytes) : std::nullopt;
    const auto* entry = content ? valueForKey(*content, "entry").as<Dictionary>() : nullptr;
    if (!entry) return std::nullopt;
    PreferenceEntry result{valueForKey(*entry, "label").text(), valueForKey(*entry, "bundle").text(), "",
                           false};
    const auto bundle = preferenceBundlePath(result.bundle);
    if (!bundle) return std::nullopt;
    if (result.label.empty()) result.label = result.bundle;
    const auto& icon = valueForKey(*entry, "icon").text();
    if (isPlainName(icon)) result.iconPath = *bundle + icon;
    result.isLoadable = base && base->open(*bundle + "Info.plist", O_RDONLY);
    return result;
}

} // namespace

std::vector<PreferenceEntry> findPreferenceEntries(LinuxDevice& device) {
    std::optional<DeviceRoot> base;
    try {
        base.emplace(baseLayerDirectory());
    } catch (const std::system_error&) {
        // The product's own files are not installed: what the device has is listed all the same.
    }
    auto files = entryFiles(device.root());
    if (base)
        for (auto& file : entryFiles(*base))
            files.push_back(std::move(file));
    std::ranges::sort(files);
    files.erase(std::unique(files.begin(), files.end()), files.end());

    std::vector<PreferenceEntry> entries;
    for (const auto& file : files)
        if (auto entry = readEntry(device, base ? &*base : nullptr, file))
            entries.push_back(std::move(*entry));
    std::ranges::stable_sort(entries, namePrecedes, &PreferenceEntry::label);
    return entries;
}

} // namespace prismo::settings
