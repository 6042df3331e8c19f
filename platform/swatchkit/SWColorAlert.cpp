#include "platform/swatchkit/SWColorAlert.h"

#include "platform/swatchkit/ColorText.h"
#include "platform/uikit/UIApplication.h"

#include <algorithm>
#include <utility>

namespace prismo {

std::shared_ptr<SWColorAlert> SWColorAlert::colorAlertWithStartColor(const UIColor& startColor,
                                                                     bool showAlpha) {
    return std::make_shared<SWColorAlert>(startColor, showAlpha);
}

SWColorAlert::SWColorAlert(const UIColor& startColor, bool showAlpha)
    : startColor_(startColor), color_(startColor), hsb_(startColor.hsb()), showsAlpha_(showAlpha) {}

void SWColorAlert::displayWithCompletion(Completion completion) {
    completion_ = std::move(completion);
    UIApplication::sharedApplication()->present(shared_from_this());
}

void SWColorAlert::setHSB(UIColor::HSB hsb) {
    hsb = {std::clamp(hsb.hue, 0.0, 1.0), std::clamp(hsb.saturation, 0.0, 1.0),
           std::clamp(hsb.brightness, 0.0, 1.0)};
    show(UIColor::colorWithHue(hsb.hue, hsb.saturation, hsb.brightness, color_.alpha), hsb);
}

std::string SWColorAlert::hexText() const { return hexFromColor(color_); }

bool SWColorAlert::setHexText(std::string_view text) {
    auto color = colorFromText(text);
    if (!color) return false;
    if (!showsAlpha_) color->alpha = color_.alpha;
    setColor(*color);
    return true;
}

void SWColorAlert::setAlpha(double alpha) {
    if (!showsAlpha_) return;
    assign(color_.alpha, std::clamp(alpha, 0.0, 1.0));
}

void SWColorAlert::setColor(const UIColor& color) { show(color, color.hsb()); }

void SWColorAlert::show(const UIColor& color, UIColor::HSB hsb) {
    if (color == color_ && hsb == hsb_) return;
    color_ = color;
    hsb_ = hsb;
    changed();
}

void SWColorAlert::accept() {
    const auto completion = std::exchange(completion_, nullptr);
    UIApplication::sharedApplication()->dismiss(shared_from_this());
    if (completion) completion(color_);
}

void SWColorAlert::cancel() {
    completion_ = nullptr;
    UIApplication::sharedApplication()->dismiss(shared_from_this());
}

} // namespace prismo
