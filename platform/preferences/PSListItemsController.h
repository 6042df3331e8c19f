#pragma once

#include "platform/preferences/PSListController.h"

namespace prismo {

/// A page that chooses one of several values: one row per value, with a checkmark on the current one. It
/// reads and writes the value of the row that opened it, and the checkmark follows changes of that row's
/// page.
class PSListItemsController : public PSListController {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }

    void viewDidLoad() override;
    /// One row per value of the row that opened the page.
    std::shared_ptr<PSSpecifierList> specifiers() override;
    /// Asks the target of `specifier`, which is the row that opened the page.
    Value readPreferenceValue(const std::shared_ptr<PSSpecifier>& specifier) override;
    void setPreferenceValue(const Value& value, const std::shared_ptr<PSSpecifier>& specifier) override;

    /// True if this is the row of the current value.
    bool isChecked(const PSSpecifier& row);

    std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView& table,
                                                                    NSIndexPath indexPath) override;
    /// Chooses the value of the tapped row.
    void tableViewDidSelectRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override;

  private:
    Subscription openerChanges_;
};

} // namespace prismo
