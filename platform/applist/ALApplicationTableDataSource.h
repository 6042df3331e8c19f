#pragma once

#include "platform/applist/ALValueCell.h"
#include "platform/foundation/Device.h"
#include "platform/uikit/views/UITableView.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace prismo {

/// One section of an application table: its title and which applications stand in it.
struct ALSectionDescriptor {
    std::string title;
    std::function<bool(const InstalledApplication&)> predicate;
    /// The side of the icons, in points.
    double iconSize = 29;
};

/// A table of the installed applications, in sections, each sorted by name as a person expects: without
/// regard to case, and numbers by their value. A section that has no application is left out.
class ALApplicationTableDataSource : public NSObject, public Observable, public UITableViewDataSource {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }

    /// "System Applications", then "User Applications".
    static std::vector<ALSectionDescriptor> standardSectionDescriptors();

    const std::vector<ALSectionDescriptor>& sectionDescriptors() const { return sectionDescriptors_; }
    /// Lists the applications anew.
    void setSectionDescriptors(std::vector<ALSectionDescriptor> descriptors);

    struct Section {
        std::string title;
        double iconSize;
        /// In the order of the table.
        std::vector<InstalledApplication> applications;
    };
    const std::vector<Section>& sections() const { return sections_; }

    /// Nothing where there is no such row.
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
