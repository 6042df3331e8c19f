#include "platform/local/desktop/DesktopIcons.h"

#include "platform/local/descriptors/FileBytes.h"
#include "platform/local/descriptors/UniqueFd.h"

#include <fcntl.h>
#include <utility>

namespace prismo {

namespace {

constexpr const char* directory = "/var/run/desktop-icons/";
// Larger than any icon.
constexpr std::size_t largestIcon = std::size_t{16} << 20;

} // namespace

void DesktopIcons::adopt(std::vector<InstalledApplication>& applications) {
    files_.clear();
    for (auto& application : applications) {
        if (application.iconPath.empty()) continue;
        auto path = directory + application.displayIdentifier + ".png";
        files_[path] = std::move(application.iconPath);
        application.iconPath = std::move(path);
    }
}

std::optional<Data> DesktopIcons::read(const std::string& path) const {
    const auto found = files_.find(path);
    if (found == files_.end()) return {};
    const auto& hostPath = found->second;
    // Another file may have taken its place, such as a FIFO, which a reader would wait for.
    const UniqueFd file(::open(hostPath.c_str(), O_RDONLY | O_CLOEXEC | atOnce));
    if (!file || !regularStatus(file.get(), hostPath)) return {};
    auto bytes = readAll(file.get(), largestIcon, hostPath);
    return bytes ? std::optional(std::move(bytes).value()) : std::nullopt;
}

} // namespace prismo
