#pragma once

#include "platform/uikit/views/UITableViewCell.h"

#include <memory>

namespace prismo {

class ALValueCell;

/// Is notified when a value changes in a cell of an application table.
class ALValueCellDelegate {
  public:
    virtual ~ALValueCellDelegate() = default;
    virtual void valueCellDidChangeToValue(ALValueCell& cell, const Value& value) = 0;
};

/// The cell of one application. It does not keep its delegate alive.
class ALValueCell : public UITableViewCell {
  public:
    std::shared_ptr<ALValueCellDelegate> delegate() const { return delegate_.lock(); }
    void setDelegate(const std::shared_ptr<ALValueCellDelegate>& delegate) { assign(delegate_, delegate); }

    /// Called by the host when a person changes the cell's value.
    void changeToValue(const Value& value) {
        if (const auto receiver = delegate()) receiver->valueCellDidChangeToValue(*this, value);
    }

  private:
    std::weak_ptr<ALValueCellDelegate> delegate_;
};

} // namespace prismo
