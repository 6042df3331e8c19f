#include "settings/model/overlays/ColorPicker.h"

#include "settings/model/Colors.h"
#include "settings/model/overlays/RecentColors.h"

#include "platform/swatchkit/ColorText.h"

#include <utility>

namespace prismo::settings {

ColorPicker::ColorPicker(std::shared_ptr<SWColorAlert> picker, RecentColors& recentColors, Taps& taps)
    : Overlay(picker, taps), picker_(std::move(picker)), recentColors_(recentColors),
      // Not deferred: a dragged control must follow the pointer.
      subscription_(picker_->observe([this] { emit changed(); })) {}

QColor ColorPicker::startColor() const { return toQColor(picker_->startColor()); }

QColor ColorPicker::color() const { return toQColor(picker_->color()); }

QString ColorPicker::startHexText() const {
    return QString::fromStdString(hexFromColor(picker_->startColor()));
}

void ColorPicker::setHSB(double hue, double saturation, double brightness) {
    picker_->setHSB({hue, saturation, brightness});
}

void ColorPicker::setAlpha(double alpha) { picker_->setAlpha(alpha); }

bool ColorPicker::setHexText(const QString& text) {
    return picker_->setHexText(text.trimmed().toStdString());
}

void ColorPicker::accept() {
    end("ColorPicker::accept", [picker = picker_, &recentColors = recentColors_] {
        recentColors.add(QString::fromStdString(picker->hexText()));
        picker->accept();
    });
}

void ColorPicker::dismiss() {
    end("ColorPicker::dismiss", [picker = picker_] { picker->cancel(); });
}

} // namespace prismo::settings
