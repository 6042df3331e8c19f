#include "platform/local/desktop/IconFile.h"

#include "platform/local/desktop/GObjectPointer.h"
#include "platform/png/Png.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>
#include <vector>

namespace prismo {

namespace {

bool isPng(const std::filesystem::path& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return false;
    std::array<char, pngSignature.size()> start{};
    std::ifstream file(path, std::ios::binary);
    return file.read(start.data(), start.size()) && std::ranges::equal(start, pngSignature);
}

std::vector<std::filesystem::path> dataDirectories() {
    std::vector<std::filesystem::path> result{g_get_user_data_dir()};
    for (const auto* directory = g_get_system_data_dirs(); *directory; ++directory)
        result.emplace_back(*directory);
    return result;
}

std::string namedIcon(const std::string& name) {
    // A name must not lead out of the icon directories.
    if (name.empty() || name.find('/') != std::string::npos) return {};
    // First the sizes that need not be enlarged to 59 points, starting with the closest.
    constexpr std::array sizes{"64x64",   "72x72",   "96x96", "128x128", "192x192",
                               "256x256", "512x512", "48x48", "32x32"};
    const auto file = name + ".png";
    for (const auto& data : dataDirectories()) {
        for (const auto* size : sizes)
            if (auto path = data / "icons/hicolor" / size / "apps" / file; isPng(path)) return path;
        if (auto path = data / "pixmaps" / file; isPng(path)) return path;
    }
    return {};
}

} // namespace

std::string iconFile(GIcon* icon) {
    if (G_IS_FILE_ICON(icon)) {
        const GText path(g_file_get_path(g_file_icon_get_file(G_FILE_ICON(icon))));
        return path && isPng(path.get()) ? path.get() : "";
    }
    if (!G_IS_THEMED_ICON(icon)) return {};
    for (const auto* name = g_themed_icon_get_names(G_THEMED_ICON(icon)); *name; ++name)
        if (auto found = namedIcon(*name); !found.empty()) return found;
    return {};
}

} // namespace prismo
