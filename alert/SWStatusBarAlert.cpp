#include "alert/SWStatusBarAlert.h"

#include "platform/foundation/Device.h"
#include "platform/foundation/NSTimer.h"
#include "platform/uikit/UIApplication.h"

#include <utility>

namespace prismo {

namespace {

// Single precision, as on the platform: 0.30000001192092896 seconds once widened.
constexpr Seconds fadeDuration(0.3F);

CGRect bannerFrame() {
    const auto* screen = UIScreen::mainScreen();
    return {{0, 0}, {screen ? screen->bounds().size.width : 0, 20}};
}

} // namespace

const Class& SWStatusBarAlert::classObject() {
    static const Class objectClass("SWStatusBarAlert", &NSObject::classObject(),
                                   [] { return std::make_shared<SWStatusBarAlert>(); },
                                   {method<&SWStatusBarAlert::hideOverlay>("hideOverlay"),
                                    method<&SWStatusBarAlert::updateStatusBarFrame>("updateStatusBarFrame")});
    return objectClass;
}

std::shared_ptr<SWStatusBarAlert> SWStatusBarAlert::initWithMessage(std::string message,
                                                                    std::optional<std::string> notification,
                                                                    std::optional<std::string> action,
                                                                    std::shared_ptr<NSObject> target) {
    auto alert = std::make_shared<SWStatusBarAlert>();
    auto& center = Device::current().notificationCenter();
    for (const auto* name : {UIApplicationDidChangeStatusBarOrientationNotification,
                             UIApplicationWillChangeStatusBarFrameNotification})
        center.addObserver(alert, "updateStatusBarFrame", name);

    alert->setMessage(std::move(message));
    alert->notification_ = std::move(notification);
    alert->setAction(std::move(action));
    alert->setTarget(std::move(target));
    if (alert->notification_)
        CFNotificationCenterGetDarwinNotifyCenter().addObserver(
            alert, showStatusBarAlert, *alert->notification_, SuspensionBehavior::coalesce);

    alert->setApplicationWindow(UIApplication::sharedApplication()->keyWindow());
    if (alert->applicationWindow_)
        alert->oldLevel_ = Value(alert->applicationWindow_->windowLevel()).intValue();
    alert->actionButton_ = std::make_shared<UIButton>(bannerFrame());
    alert->actionButton_->setAutoresizingMask(UIViewAutoresizingFlexibleWidth |
                                              UIViewAutoresizingFlexibleHeight);
    alert->actionButton_->setAlpha(0);
    if (alert->target_ && alert->action_)
        alert->actionButton_->addTarget(alert->target_, *alert->action_, UIControlEventTouchUpInside);
    alert->setBackgroundColor(UIColor::colorWithHue(0.15, 0, 0.96, 1));
    alert->setTextColor(UIColor::blackColor());
    alert->actionButton_->setBackgroundColor(alert->backgroundColor_);
    return alert;
}

SWStatusBarAlert::~SWStatusBarAlert() = default;

void showStatusBarAlert(const std::shared_ptr<NSObject>& observer) {
    if (const auto alert = std::dynamic_pointer_cast<SWStatusBarAlert>(observer))
        alert->showOverlayForSeconds(5.5F);
}

void SWStatusBarAlert::updateStatusBarFrame() { actionButton_->setFrame(bannerFrame()); }

void SWStatusBarAlert::showOverlayForSeconds(float seconds) {
    if (actionButton_->isHidden()) actionButton_->setHidden(false);
    if (applicationWindow_) applicationWindow_->setWindowLevel(UIWindowLevelStatusBar);
    actionButton_->setTitle(message_);
    actionButton_->setTitleColor(textColor_);
    actionButton_->setBackgroundColor(backgroundColor_);
    actionButton_->titleLabel()->setFont(UIFont::boldSystemFontOfSize(12));
    if (applicationWindow_) {
        applicationWindow_->addSubview(actionButton_);
        applicationWindow_->bringSubviewToFront(actionButton_);
    }
    const auto self = sharedSelf<SWStatusBarAlert>();
    UIView::animateWithDuration(
        fadeDuration, [&] { actionButton_->setAlpha(1); },
        [self, seconds](bool /*finished*/) { scheduleTimer(Seconds(seconds), self, "hideOverlay"); });
}

void SWStatusBarAlert::hideOverlay() {
    const auto self = sharedSelf<SWStatusBarAlert>();
    UIView::animateWithDuration(
        fadeDuration,
        [&] {
            actionButton_->setAlpha(0);
            // At the start of the fade, not at its end: the window drops back while the banner is still
            // fading.
            if (applicationWindow_) applicationWindow_->setWindowLevel(oldLevel_);
        },
        [self](bool /*finished*/) {
            self->actionButton_->removeFromSuperview();
            self->actionButton_->setHidden(true);
        });
}

} // namespace prismo
