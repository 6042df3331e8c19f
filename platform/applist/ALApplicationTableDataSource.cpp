#include "platform/applist/ALApplicationTableDataSource.h"

#include "platform/applist/ALApplicationList.h"
#include "platform/applist/NameOrder.h"

#include <algorithm>
#include <iterator>

namespace prismo {

const Class& ALApplicationTableDataSource::classObject() {
    static const Class objectClass("ALApplicationTableDataSource", &NSObject::classObject(),
                                   [] { return std::make_shared<ALApplicationTableDataSource>(); });
    return objectClass;
}

std::vector<ALSectionDescriptor> ALApplicationTableDataSource::standardSectionDescriptors() {
    return {
        {"System Applications", [](const InstalledApplication& application) { return application.isSystem; }},
        {"User Applications", [](const InstalledApplication& application) { return !application.isSystem; }}};
}

void ALApplicationTableDataSource::setSectionDescriptors(std::vector<ALSectionDescriptor> descriptors) {
    sectionDescriptors_ = std::move(descriptors);
    auto& device = Device::current();
    device.refreshApplications();
    sections_.clear();
    for (const auto& descriptor : sectionDescriptors_) {
        Section section{descriptor.title, descriptor.iconSize, {}};
        std::ranges::copy_if(device.installedApplications(), std::back_inserter(section.applications),
                             descriptor.predicate);
        std::ranges::stable_sort(section.applications, namePrecedes, &InstalledApplication::displayName);
        if (!section.applications.empty()) sections_.push_back(std::move(section));
    }
    changed();
}

const InstalledApplication* ALApplicationTableDataSource::applicationAt(NSIndexPath indexPath) const {
    if (indexPath.section >= sections_.size()) return nullptr;
    const auto& applications = sections_[indexPath.section].applications;
    return indexPath.row < applications.size() ? &applications[indexPath.row] : nullptr;
}

std::optional<std::string>
ALApplicationTableDataSource::displayIdentifierForIndexPath(NSIndexPath indexPath) const {
    const auto* application = applicationAt(indexPath);
    return application ? std::optional(application->displayIdentifier) : std::nullopt;
}

std::size_t ALApplicationTableDataSource::numberOfSectionsInTableView(UITableView& /*table*/) {
    return sections_.size();
}

std::size_t ALApplicationTableDataSource::tableViewNumberOfRowsInSection(UITableView& /*table*/,
                                                                         std::size_t section) {
    return section < sections_.size() ? sections_[section].applications.size() : 0;
}

std::string ALApplicationTableDataSource::tableViewTitleForHeaderInSection(UITableView& /*table*/,
                                                                           std::size_t section) {
    return section < sections_.size() ? sections_[section].title : "";
}

std::shared_ptr<UITableViewCell>
ALApplicationTableDataSource::tableViewCellForRowAtIndexPath(UITableView& /*table*/, NSIndexPath indexPath) {
    const auto* application = applicationAt(indexPath);
    if (!application) return nullptr;
    auto cell = std::make_shared<ALValueCell>();
    cell->textLabel().setText(application->displayName);
    cell->setImage(ALApplicationList::sharedApplicationList().iconOfSize(
        sections_[indexPath.section].iconSize, application->displayIdentifier));
    return cell;
}

} // namespace prismo
