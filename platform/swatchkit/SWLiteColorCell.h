#pragma once

#include "platform/preferences/PSTableCell.h"
#include "platform/uikit/graphics/UIColor.h"

namespace prismo {

/// A settings cell with a swatch. It computes its color when it gets its row, and again whenever the
/// system-wide notification arrives that the row's property "NotificationListener" names.
class SWLiteColorCell : public PSTableCell {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }

    void setSpecifier(std::shared_ptr<PSSpecifier> specifier) override;

    /// The color to show, computed on every call. Subclasses override it.
    virtual UIColor previewColor() { return UIColor::whiteColor(); }
    /// The color shown.
    const UIColor& swatch() const { return swatch_; }
    void refreshSwatch() { assign(swatch_, previewColor()); }

  private:
    UIColor swatch_;
};

} // namespace prismo
