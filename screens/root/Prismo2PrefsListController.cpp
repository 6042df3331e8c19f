#include "screens/root/Prismo2PrefsListController.h"

#include "kit/FBAddTwitterShareButton.h"
#include "prefs/SettingsFile.h"

#include "platform/foundation/CFNotificationCenter.h"

namespace prismo {

const Class& Prismo2PrefsListController::classObject() {
    using Page = Prismo2PrefsListController;
    static const Class objectClass(
        "Prismo2PrefsListController", &PSListController::classObject(),
        [] { return std::make_shared<Page>(); },
        {method<&Page::readSegmentPreferenceValue>("readSegmentPreferenceValue:"),
         method<&Page::setSegmentPreferenceValue>("setSegmentPreferenceValue:specifier:"),
         method<&Page::chooseColor>("chooseColor:"), method<&Page::respring>("respring:"),
         method<&Page::clearIconColorCache>("clearIconColorCache"), method<&Page::splashtoner>("splashtoner"),
         method<&Page::twitter>("twitter")});
    return objectClass;
}

void settingsChanged(const std::shared_ptr<NSObject>& observer) {
    if (const auto page = std::dynamic_pointer_cast<Prismo2PrefsListController>(observer))
        page->settleAndReload();
}

void Prismo2PrefsListController::loadView() {
    FBAddTwitterShareButton(
        sharedSelf<UIViewController>(),
        UIImage::imageWithContentsOfFile("/Library/PreferenceBundles/Prismo2Prefs.bundle/twitter.png"),
        "#Prismo2 by @quillmoth customizes color throughout all of my apps and more!");
    PSListController::loadView();
}

void Prismo2PrefsListController::viewDidLoad() {
    PSListController::viewDidLoad();
    const auto self = sharedSelf<Prismo2PrefsListController>();
    if (!statusAlert_) {
        setStatusAlert(SWStatusBarAlert::initWithMessage("Prismo 2 – Tap to Respring?", changeNotification,
                                                         "respring:", self));
        statusAlert_->setBackgroundColor(UIColor::colorWithHue(0.59, 1.0, 1.0, 0.9));
        statusAlert_->setTextColor(UIColor::whiteColor());
    }
    CFNotificationCenterGetDarwinNotifyCenter().addObserver(self, settingsChanged, changeNotification,
                                                            SuspensionBehavior::coalesce);
}

void Prismo2PrefsListController::viewWillAppear(bool animated) {
    setTitle("Prismo 2");
    PSListController::viewWillAppear(animated);
}

void Prismo2PrefsListController::didMoveToParentViewController(
    const std::shared_ptr<UIViewController>& parent) {
    if (!parent) setStatusAlert(nullptr);
}

std::shared_ptr<UITableViewCell>
Prismo2PrefsListController::tableViewCellForRowAtIndexPath(UITableView& table, NSIndexPath indexPath) {
    auto cell = PSListController::tableViewCellForRowAtIndexPath(table, indexPath);
    const auto row = specifierAtIndexPath(indexPath);
    if (cell && row->identifier() == "currentAppCell")
        cell->textLabel().setFont(UIFont::systemFontOfSize(20));
    return cell;
}

} // namespace prismo
