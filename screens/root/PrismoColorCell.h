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

/// The colour that the settings hold under the key; else the fall-back text's, else white.
UIColor storedColor(const Dictionary& settings, const SettingsKey& key, const Value& fallback);

} // namespace prismo
