#include "settings/bundles/PreferenceEntries.h"

#include "platform/applist/NameOrder.h"
#include "platform/linux/files/BaseLayerRoot.h"
#include "platform/linux/LinuxDevice.h"
#include "platform/local/descriptors/DirectoryNames.h"
#include "platform/local/installation/PreferenceBundle.h"
#include "platform/plist/PropertyListReader.h"

#include <algorithm>
#include <fcntl.h>
#include <map>
#include <optional>

namespace prismo::settings {

namespace {

constexpr const char* entryDirectory = "/Library/PreferenceLoader/Preferences";

std::vector<std::string> entryFiles(const DeviceRoot& root) {
    std::vector<std::string> names;
    const auto directory = root.open(entryDirectory, O_RDONLY | O_DIRECTORY);
    if (!directory) return names;
    forEachName(directory.value().get(), [&](const std::string& name) {
        if (!name.starts_with('.') && name.ends_with(".plist")) names.push_back(name);
    });
    return names;
}

std::optional<PreferenceEntry> readEntry(LinuxDevice& device, const DeviceRoot* base,
                                         const std::string& file) {
    const auto bytes = device.readFile(std::string(entryDirectory) + "/" + file);
    if (!bytes) return std::nullopt;
    const auto content = parseDictionary(*bytes, device.root().hostPath(entryDirectory) + "/" + file);
    const auto* entry = content ? valueForKey(content.value(), "entry").as<Dictionary>() : nullptr;
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
    // Without the product's own files, only the device's are listed.
    const auto base = openBaseLayer();
    auto files = entryFiles(device.root());
    if (base)
        for (auto& file : entryFiles(base.value()))
            files.push_back(std::move(file));
    std::ranges::sort(files);
    files.erase(std::unique(files.begin(), files.end()), files.end());

    std::vector<PreferenceEntry> entries;
    for (const auto& file : files)
        if (auto entry = readEntry(device, base ? &base.value() : nullptr, file))
            entries.push_back(std::move(*entry));
    std::ranges::stable_sort(entries, namePrecedes, &PreferenceEntry::label);
    return entries;
}

} // namespace prismo::settings
