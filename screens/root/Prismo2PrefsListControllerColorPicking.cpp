// From a tap on a color row to the stored color.

#include "prefs/SettingsFile.h"
#include "screens/root/Prismo2PrefsListController.h"
#include "screens/root/PrismoColorCell.h"

#include "platform/foundation/CFNotificationCenter.h"
#include "platform/swatchkit/ColorText.h"
#include "platform/swatchkit/SWColorAlert.h"
#include "platform/text/Number.h"

namespace prismo {

void Prismo2PrefsListController::chooseColor(const std::shared_ptr<PSSpecifier>& specifier) {
    const auto key = keyOf(*specifier, "prismo_key");
    auto settings = loadSettings();
    const auto startColor = storedColor(settings, key, specifier->propertyForKey("prismo_dc"));
    const auto picker = SWColorAlert::colorAlertWithStartColor(startColor, false);
    // The chosen color is added to the settings as they were when the picker opened.
    picker->displayWithCompletion([settings, key](const UIColor& chosen) mutable {
        if (!key) return;
        const auto text = hexFromColor(chosen) + ":" + decimalText(chosen.alpha);
        settings.insert_or_assign(*key, text);
        saveSettings(settings);
        CFNotificationCenterGetDarwinNotifyCenter().postNotification(changeNotification, text);
    });
}

} // namespace prismo
