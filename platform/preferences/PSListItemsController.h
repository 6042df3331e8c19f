#pragma once

#include "platform/preferences/PSListController.h"

namespace prismo {

/// A page on which one of several values is chosen: one row for each, the chosen one marked. What is read and
/// written is the value of the row that opened the page, and the mark follows what the page of that row
/// shows.
class PSListItemsController : public PSListController {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }

    void viewDidLoad() override;
    /// A row for each value of the row that opened the page.
    std::shared_ptr<PSSpecifierList> specifiers() override;
    /// Asks the target of the row that opened the page.
    Value readPreferenceValue(const std::shared_ptr<PSSpecifier>& specifier) override;
    void setPreferenceValue(const Value& value, const std::shared_ptr<PSSpecifier>& specifier) override;

    /// Is this the row of the current value?
    bool isChecked(const PSSpecifier& row);

    std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView& table,
                                                                    NSIndexPath indexPath) override;
    /// Chooses the value of the tapped row.
    void tableViewDidSelectRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override;

  private:
    Subscription openerChanges_;
};

} // namespace prismo
