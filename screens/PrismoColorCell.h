#pragma once

#include "prefs/SettingsFile.h"

#include "platform/swatchkit/SWLiteColorCell.h"

namespace prismo {

/// The cell of a colour row: a swatch of the colour that the settings file holds for the row's element, or of
/// the global colour where the element follows that.
class PrismoColorCell : public SWLiteColorCell {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }

    /// The settings key of the colour shown, or none.
    SettingsKey prefKey() const;
    /// The row's fall-back colour text, or nothing.
    const Value& defaultColorFB() const;
    UIColor previewColor() override;
};

} // namespace prismo
