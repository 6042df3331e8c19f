// The root page's actions besides editing settings.

#include "kit/FBKillProcess.h"
#include "kit/FBOpenLinks.h"
#include "prefs/SettingsFile.h"
#include "screens/root/Prismo2PrefsListController.h"

#include "platform/foundation/CFNotificationCenter.h"
#include "platform/uikit/UIApplication.h"

namespace prismo {

int Prismo2PrefsListController::respring(const std::shared_ptr<NSObject>& /*sender*/) {
    return FBKillProcess("9", "backboardd");
}

void Prismo2PrefsListController::clearIconColorCache() {
    auto settings = loadSettings();
    std::erase_if(settings, [](const auto& entry) { return entry.first.starts_with("cached_icon_color_"); });
    saveSettings(settings);
    CFNotificationCenterGetDarwinNotifyCenter().postNotification(changeNotification);
}

void Prismo2PrefsListController::splashtoner() {
    UIApplication::sharedApplication()->openURL("cydia://package/com.corvane.splashtoner");
}

void Prismo2PrefsListController::twitter() { FBOpenTwitterUsername("quillmoth"); }

} // namespace prismo
