#include "settings/model/overlays/Banner.h"

#include "settings/model/Colors.h"
#include "settings/model/Taps.h"

#include "platform/foundation/Device.h"

#include <chrono>
#include <utility>

namespace prismo::settings {

Banner::Banner(std::shared_ptr<UIButton> button, Taps& taps) : button_(std::move(button)), taps_(taps) {
    using namespace std::chrono_literals;
    frames_.setInterval(16ms);
    connect(&frames_, &QTimer::timeout, this, &Banner::look);
    changes_.follow(*button_);
    changes_.follow(*button_->titleLabel());
    look();
}

void Banner::look() {
    if (Device::current().runLoop().now() < button_->animationEnd())
        frames_.start();
    else
        frames_.stop();
    emit opacityChanged();
    emit changed();
}

QColor Banner::titleColor() const { return toQColor(button_->titleColor()); }

QColor Banner::color() const { return toQColor(button_->backgroundColor()); }

QRectF Banner::frame() const {
    const auto frame = button_->frame();
    return {frame.origin.x, frame.origin.y, frame.size.width, frame.size.height};
}

void Banner::tap() {
    taps_.add("Banner::tap", [button = button_] {
        if (button->takesTouches()) button->sendActionsForControlEvents(UIControlEventTouchUpInside);
    });
}

} // namespace prismo::settings
