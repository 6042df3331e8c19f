#include "platform/local/desktop/DesktopIcons.h"

#include "platform/local/descriptors/FileBytes.h"
#include "platform/local/descriptors/UniqueFd.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace prismo {

namespace {

constexpr const char* directory = "/var/run/desktop-icons/";
// More than any icon takes.
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
    // Another file may have taken its place, one that would make the reader wait.
    const UniqueFd file(::open(found->second.c_str(), O_RDONLY | O_CLOEXEC | atOnce));
    struct stat status {};
    if (!file || ::fstat(file.get(), &status) != 0 || !notRegular(status).empty()) return {};
    return readAll(file.get(), largestIcon);
}

} // namespace prismo
