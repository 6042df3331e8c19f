#include "settings/Page.h"

#include "settings/Colors.h"
#include "settings/Images.h"
#include "settings/Taps.h"

#include "platform/uikit/UIApplication.h"
#include "platform/uikit/UIBarButtonItem.h"

#include <utility>

namespace prismo::settings {

Page::Page(std::shared_ptr<UIViewController> controller, Taps& taps)
    : controller_(std::move(controller)), taps_(taps), table_(controller_, taps) {
    look();
}

void Page::look() {
    auto& item = controller_->navigationItem();
    const auto button = item.rightBarButtonItem();
    changes_.followNothing();
    changes_.follow(*controller_);
    changes_.follow(item);
    changes_.follow(*controller_->view());
    changes_.follow(*UIApplication::sharedApplication());
    if (button) changes_.follow(*button);

    title_ = QString::fromStdString(controller_->title());
    hasRightButton_ = button != nullptr;
    rightImage_ = button ? Images::address(button->image()) : QString();
    rightLabel_ = button ? QString::fromStdString(button->accessibilityLabel()) : QString();
    tint_ = toQColor(controller_->view()->tintColor());
    const auto& appearance =
        UIApplication::sharedApplication()->appearanceWhenContainedIn(controller_->isa());
    segmentTint_ = toQColor(appearance.segmentedControlTintColor);
    switchTint_ = toQColor(appearance.switchOnTintColor);
    emit changed();
}

void Page::tapRightButton() {
    taps_.add([button = controller_->navigationItem().rightBarButtonItem()] {
        if (button) button->tap();
    });
}

} // namespace prismo::settings
