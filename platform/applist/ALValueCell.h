#pragma once

#include "platform/uikit/views/UITableViewCell.h"

#include <memory>

namespace prismo {

class ALValueCell;

/// Is told of a value changed in a cell of an application table.
class ALValueCellDelegate {
  public:
    virtual ~ALValueCellDelegate() = default;
    virtual void valueCellDidChangeToValue(ALValueCell& cell, const Value& value) = 0;
};

/// The cell of one application. Its delegate is not kept alive.
class ALValueCell : public UITableViewCell {
  public:
    std::shared_ptr<ALValueCellDelegate> delegate() const { return delegate_.lock(); }
    void setDelegate(const std::shared_ptr<ALValueCellDelegate>& delegate) { assign(delegate_, delegate); }

    /// A person has changed the cell's value.
    void changeToValue(const Value& value) {
        if (const auto told = delegate()) told->valueCellDidChangeToValue(*this, value);
    }

  private:
    std::weak_ptr<ALValueCellDelegate> delegate_;
};

} // namespace prismo
