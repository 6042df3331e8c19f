#pragma once

#include "prefs/SettingsFile.h"

#include "platform/swatchkit/SWLiteColorCell.h"

namespace prismo {

/// The cell of a color row. Its swatch shows the color stored for the row's element, or the global color if
/// the element follows that.
class PrismoColorCell : public SWLiteColorCell {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }

    /// The settings key of the color shown, or nullopt.
    SettingsKey prefKey() const;
    /// The row's fallback color text, or nothing.
    const Value& defaultColorFB() const;
    UIColor previewColor() override;
};

/// The color stored under the key, or else the color of the fallback text, or else white.
UIColor storedColor(const Dictionary& settings, const SettingsKey& key, const Value& fallback);

} // namespace prismo
