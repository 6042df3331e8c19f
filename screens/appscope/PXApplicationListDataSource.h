#pragma once

#include "platform/applist/ALApplicationTableDataSource.h"

#include <memory>

namespace prismo {

class Prismo2AppScope;

/// The installed applications in the standard sections, for the picker page. The data source and its page
/// keep each other alive until the page leaves its navigation stack.
class PXApplicationListDataSource : public ALApplicationTableDataSource, public ALValueCellDelegate {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }

    static std::shared_ptr<PXApplicationListDataSource>
    initWithController(std::shared_ptr<Prismo2AppScope> controller);

    const std::shared_ptr<Prismo2AppScope>& rootController() const { return rootController_; }
    void setRootController(std::shared_ptr<Prismo2AppScope> controller) {
        assign(rootController_, std::move(controller));
    }

    std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView& table,
                                                                    NSIndexPath indexPath) override;
    /// Does nothing: a picker has no values to change.
    void valueCellDidChangeToValue(ALValueCell& cell, const Value& value) override;

  private:
    std::shared_ptr<Prismo2AppScope> rootController_;
};

} // namespace prismo
