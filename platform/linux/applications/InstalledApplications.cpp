#include "platform/linux/applications/InstalledApplications.h"

#include "platform/local/descriptors/DirectoryNames.h"
#include "platform/local/descriptors/FileBytes.h"
#include "platform/plist/PropertyListGuard.h"
#include "platform/plist/PropertyListReader.h"
#include "platform/png/Png.h"
#include "platform/text/Utf8.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>

namespace prismo {

namespace {

constexpr std::string_view bundleSuffix = ".app";

/// The keys of "Info.plist" that are read here.
constexpr const char* identifierKey = "CFBundleIdentifier";
constexpr const char* displayNameKey = "CFBundleDisplayName";
constexpr const char* nameKey = "CFBundleName";
constexpr const char* tagsKey = "SBAppTags";
constexpr const char* iconsKey = "CFBundleIcons";
constexpr const char* iconFilesKey = "CFBundleIconFiles";
constexpr const char* iconFileKey = "CFBundleIconFile";
constexpr std::array keys{identifierKey, displayNameKey, nameKey,    tagsKey,
                          iconsKey,      iconFilesKey,   iconFileKey};

/// An open directory of the device. Looking a name up in it is much faster than going from the root, which
/// happens only if the name may lead elsewhere.
class Directory {
  public:
    Directory(const DeviceRoot& root, std::string path, int flags)
        : root_(root), path_(std::move(path)), descriptor_(openFromRoot(path_, flags | O_DIRECTORY)) {}
    Directory(const Directory& above, const std::string& name, int flags)
        : root_(above.root_), path_(above.pathOf(name)), descriptor_(above.open(name, flags | O_DIRECTORY)) {}

    explicit operator bool() const { return static_cast<bool>(descriptor_); }
    std::string pathOf(const std::string& name) const { return path_ + "/" + name; }

    UniqueFd open(const std::string& name, int flags) const {
        if (isInside(name)) {
            UniqueFd opened(::openat(descriptor_.get(), name.c_str(), flags | O_NOFOLLOW | O_CLOEXEC));
            // These flags turn a link into "not a directory" or "too many links".
            if (opened || (errno != ELOOP && errno != ENOTDIR)) return opened;
        }
        return openFromRoot(pathOf(name), flags);
    }

    UniqueFd openRegular(const std::string& name, struct stat& status) const {
        auto file = open(name, O_RDONLY | atOnce);
        if (file && (::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode))) file.reset();
        return file;
    }

    /// False if there is certainly no such name.
    bool mayHave(const std::string& name) const {
        return !isInside(name) ||
               ::faccessat(descriptor_.get(), name.c_str(), F_OK, AT_SYMLINK_NOFOLLOW) == 0;
    }

    /// All names that do not start with a dot, in byte order.
    std::vector<std::string> names() const {
        std::vector<std::string> result;
        forEachName(descriptor_.get(), [&](const char* name) {
            if (*name != '.') result.emplace_back(name);
        });
        std::ranges::sort(result);
        return result;
    }

  private:
    /// Empty on failure: a broken bundle is left out, for whatever reason.
    UniqueFd openFromRoot(const std::string& path, int flags) const {
        auto opened = root_.open(path, flags);
        return opened ? std::move(opened).value() : UniqueFd();
    }
    static bool isInside(std::string_view name) {
        return name.find_first_of(notInNames) == std::string_view::npos;
    }
    static constexpr std::string_view notInNames{"/\0", 2};

    const DeviceRoot& root_;
    std::string path_;
    UniqueFd descriptor_;
};

/// The width of a PNG image in pixels, or 0 if the file is missing or not a PNG image.
std::uint32_t imageWidth(const Directory& directory, const std::string& name) {
    struct stat status = {};
    const auto file = directory.openRegular(name, status);
    std::array<std::uint8_t, 64> start{};
    const auto size = file ? ::read(file.get(), start.data(), start.size()) : 0;
    const auto pixels = pngSize(std::span(start).first(size > 0 ? static_cast<std::size_t>(size) : 0));
    return pixels ? pixels->width : 0;
}

void addTexts(std::vector<std::string>& list, const Value& value) {
    if (!value.text().empty()) list.push_back(value.text());
    if (const auto* array = value.as<Array>())
        for (const auto& item : *array)
            if (!item.text().empty()) list.push_back(item.text());
}

std::vector<std::string> iconNames(const Dictionary& info) {
    std::vector<std::string> result;
    if (const auto* icons = valueForKey(info, iconsKey).as<Dictionary>())
        if (const auto* primary = valueForKey(*icons, "CFBundlePrimaryIcon").as<Dictionary>())
            addTexts(result, valueForKey(*primary, iconFilesKey));
    addTexts(result, valueForKey(info, iconFilesKey));
    addTexts(result, valueForKey(info, iconFileKey));
    return result;
}

/// The largest image among the files that the names may mean, or the first of several that are equally large.
std::string iconPath(const Directory& bundle, const Dictionary& info) {
    std::string best;
    std::uint32_t width = 0;
    for (std::string_view name : iconNames(info)) {
        if (name.ends_with(".png")) name.remove_suffix(4);
        // The largest first.
        for (const char* variant : {"@3x", "@3x~iphone", "@2x", "@2x~iphone", "", "~iphone"}) {
            const auto file = std::string(name) + variant + ".png";
            // Most of these files do not exist.
            const auto found = bundle.mayHave(file) ? imageWidth(bundle, file) : 0;
            if (found == 0) continue;
            if (found > width) {
                width = found;
                best = bundle.pathOf(file);
            }
            break; // the other variants are smaller
        }
    }
    return best;
}

bool isHidden(const Dictionary& info) {
    const auto* tags = valueForKey(info, tagsKey).as<Array>();
    return tags && std::ranges::any_of(*tags, [](const Value& tag) { return tag.text() == "hidden"; });
}

std::string displayName(const Dictionary& info, const std::string& folder) {
    for (const char* key : {displayNameKey, nameKey})
        if (const auto& name = valueForKey(info, key).text(); !name.empty()) return name;
    return folder.substr(0, folder.size() - bundleSuffix.size());
}

class Finder {
  public:
    void find(const Directory& directory, bool isSystem) {
        if (!directory) return;
        for (const auto& folder : directory.names())
            if (folder.ends_with(bundleSuffix)) add(Directory(directory, folder, O_PATH), folder, isSystem);
    }

    std::vector<InstalledApplication> result;

  private:
    void add(const Directory& bundle, const std::string& folder, bool isSystem) {
        struct stat status = {};
        const auto file = bundle ? bundle.openRegular("Info.plist", status) : UniqueFd();
        const auto path = bundle.pathOf("Info.plist");
        if (!file || !readStart(file.get(), status, maximumPropertyListSize, bytes_, path)) return;
        const auto parsed = parseDictionary(bytes_, keys, path);
        if (!parsed || isHidden(parsed.value())) return;
        const auto& info = parsed.value();
        const auto& identifier = valueForKey(info, identifierKey).text();
        if (!isApplicationIdentifier(identifier) || !identifiers_.insert(identifier).second) return;
        result.push_back({identifier, displayName(info, folder), isSystem, iconPath(bundle, info)});
    }

    std::set<std::string> identifiers_;
    Data bytes_;
};

} // namespace

bool isApplicationIdentifier(std::string_view text) {
    // It becomes part of a key, which a settings file must be able to hold.
    return !text.empty() && isPlainUtf8(text) && isXmlText(text);
}

std::vector<InstalledApplication> findApplications(const DeviceRoot& root) {
    Finder finder;
    finder.find(Directory(root, "/Applications", O_RDONLY), true);
    const Directory store(root, "/var/containers/Bundle/Application", O_RDONLY);
    if (store)
        for (const auto& container : store.names())
            finder.find(Directory(store, container, O_RDONLY), false);
    return std::move(finder.result);
}

} // namespace prismo
