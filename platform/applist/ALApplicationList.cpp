#include "platform/applist/ALApplicationList.h"

#include "platform/foundation/Device.h"

#include <algorithm>

namespace prismo {

namespace {

const InstalledApplication* find(std::string_view displayIdentifier) {
    const auto& all = Device::current().installedApplications();
    const auto found = std::ranges::find(all, displayIdentifier, &InstalledApplication::displayIdentifier);
    return found == all.end() ? nullptr : &*found;
}

} // namespace

ALApplicationList& ALApplicationList::sharedApplicationList() {
    static ALApplicationList list;
    return list;
}

Value ALApplicationList::valueForKey(std::string_view key, std::string_view displayIdentifier) const {
    const auto* application = find(displayIdentifier);
    if (!application) return {};
    if (key == "displayName") return application->displayName;
    if (key == "isSystemApplication") return application->isSystem;
    return {};
}

std::shared_ptr<UIImage> ALApplicationList::iconOfSize(double size,
                                                       std::string_view displayIdentifier) const {
    const auto* application = find(displayIdentifier);
    if (!application || application->iconPath.empty()) return nullptr;
    auto data = Device::current().readFile(application->iconPath);
    return data ? std::make_shared<UIImage>(CGSize{size, size}, std::move(*data)) : nullptr;
}

} // namespace prismo
