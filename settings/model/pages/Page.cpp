#include "settings/model/pages/Page.h"

#include "settings/model/Colors.h"
#include "settings/model/Images.h"
#include "settings/model/Taps.h"

#include "platform/uikit/UIApplication.h"

#include <utility>

namespace prismo::settings {

Page::Page(std::shared_ptr<UIViewController> controller, Taps& taps)
    : controller_(std::move(controller)), taps_(taps), table_(controller_, taps) {
    look();
}

void Page::look() {
    changes_.followNothing();
    changes_.follow(*controller_);
    changes_.follow(controller_->navigationItem());
    changes_.follow(*controller_->view());
    changes_.follow(*UIApplication::sharedApplication());
    if (const auto& button = rightButton()) changes_.follow(*button);
    emit changed();
}

const std::shared_ptr<UIBarButtonItem>& Page::rightButton() const {
    return controller_->navigationItem().rightBarButtonItem();
}

QString Page::rightImage() const {
    const auto& button = rightButton();
    return button ? Images::address(button->image()) : QString();
}

QString Page::rightLabel() const {
    const auto& button = rightButton();
    return button ? QString::fromStdString(button->accessibilityLabel()) : QString();
}

QColor Page::tint() const { return toQColor(controller_->view()->tintColor()); }

QColor Page::segmentTint() const {
    const auto& application = *UIApplication::sharedApplication();
    return toQColor(application.appearanceWhenContainedIn(controller_->isa()).segmentedControlTintColor);
}

QColor Page::switchTint() const {
    const auto& application = *UIApplication::sharedApplication();
    return toQColor(application.appearanceWhenContainedIn(controller_->isa()).switchOnTintColor);
}

void Page::tapRightButton() {
    taps_.add("Page::tapRightButton", [button = rightButton()] {
        if (button) button->tap();
    });
}

} // namespace prismo::settings
