#pragma once

#include "platform/applist/ALValueCell.h"
#include "platform/foundation/Device.h"
#include "platform/uikit/views/UITableView.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace prismo {

/// One section of an application table: its title and which applications belong to it.
struct ALSectionDescriptor {
    std::string title;
    std::function<bool(const InstalledApplication&)> predicate;
    /// The width and height of the icons, in points.
    double iconSize = 29;
};

/// A table of the installed applications, in sections. Each section is sorted by name as people expect:
/// ignoring case, and with numbers in order of value. Sections without applications are left out.
class ALApplicationTableDataSource : public NSObject, public Observable, public UITableViewDataSource {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }

    /// "System Applications", then "User Applications".
    static std::vector<ALSectionDescriptor> standardSectionDescriptors();

    const std::vector<ALSectionDescriptor>& sectionDescriptors() const { return sectionDescriptors_; }
    /// Also lists the device's applications again.
    void setSectionDescriptors(std::vector<ALSectionDescriptor> descriptors);

    struct Section {
        std::string title;
        double iconSize;
        /// In table order.
        std::vector<InstalledApplication> applications;
    };
    const std::vector<Section>& sections() const { return sections_; }

    /// Returns nullopt if there is no such row.
    std::optional<std::string> displayIdentifierForIndexPath(NSIndexPath indexPath) const;

    std::size_t numberOfSectionsInTableView(UITableView& table) override;
    std::size_t tableViewNumberOfRowsInSection(UITableView& table, std::size_t section) override;
    std::string tableViewTitleForHeaderInSection(UITableView& table, std::size_t section) override;
    std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView& table,
                                                                    NSIndexPath indexPath) override;

  private:
    const InstalledApplication* applicationAt(NSIndexPath indexPath) const;

    std::vector<ALSectionDescriptor> sectionDescriptors_;
    std::vector<Section> sections_;
};

} // namespace prismo
