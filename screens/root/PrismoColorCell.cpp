#include "screens/root/PrismoColorCell.h"

#include "screens/root/Prismo2PrefsListController.h"

#include "platform/swatchkit/ColorText.h"

namespace prismo {

const Class& PrismoColorCell::classObject() {
    static const Class objectClass("PrismoColorCell", &SWLiteColorCell::classObject(),
                                   [] { return std::make_shared<PrismoColorCell>(); });
    return objectClass;
}

SettingsKey PrismoColorCell::prefKey() const {
    // Unscoped, even in application scope.
    if (specifier()->name() == usingGlobalColorName) return "global_color";
    return keyOf(*specifier(), "prismo_key");
}

const Value& PrismoColorCell::defaultColorFB() const { return specifier()->propertyForKey("prismo_dc"); }

UIColor PrismoColorCell::previewColor() { return storedColor(loadSettings(), prefKey(), defaultColorFB()); }

UIColor storedColor(const Dictionary& settings, const SettingsKey& key, const Value& fallback) {
    return SWKParseColorString(settingForKey(settings, key).text(),
                               fallback.isNothing() ? "#FFFFFF" : fallback.text());
}

} // namespace prismo
