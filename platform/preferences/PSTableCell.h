#pragma once

#include "platform/preferences/PSSpecifier.h"
#include "platform/uikit/views/UITableViewCell.h"

#include <memory>

namespace prismo {

/// The cell of a settings row. A row can name another class in its property "cellClass".
class PSTableCell : public UITableViewCell {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }

    const std::shared_ptr<PSSpecifier>& specifier() const { return specifier_; }
    /// Called once, before the cell is shown.
    virtual void setSpecifier(std::shared_ptr<PSSpecifier> specifier);

    /// Shows the row's current state: name, image, whether it is enabled, and the short title of its value.
    void refreshCellContents();

  private:
    std::shared_ptr<PSSpecifier> specifier_;
};

} // namespace prismo
