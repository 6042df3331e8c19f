#pragma once

#include "settings/model/overlays/Overlay.h"
#include "settings/model/Refresh.h"

#include "platform/swatchkit/SWColorAlert.h"

#include <memory>
#include <QColor>
#include <QtQml/qqmlregistration.h>

namespace prismo::settings {

class RecentColors;

/// The color picker for QML. Components range from 0 to 1.
class ColorPicker : public prismo::settings::Overlay {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application presents color pickers")
    Q_PROPERTY(QColor startColor READ startColor CONSTANT)
    Q_PROPERTY(QColor color READ color NOTIFY changed)
    Q_PROPERTY(double hue READ hue NOTIFY changed)
    Q_PROPERTY(double saturation READ saturation NOTIFY changed)
    Q_PROPERTY(double brightness READ brightness NOTIFY changed)
    Q_PROPERTY(double alpha READ alpha NOTIFY changed)
    Q_PROPERTY(bool showsAlpha READ showsAlpha CONSTANT)
    Q_PROPERTY(QString hexText READ hexText NOTIFY changed)
    Q_PROPERTY(QString startHexText READ startHexText CONSTANT)

  public:
    ColorPicker(std::shared_ptr<SWColorAlert> picker, RecentColors& recentColors, Taps& taps);

    QColor startColor() const;
    QColor color() const;
    double hue() const { return picker_->hsb().hue; }
    double saturation() const { return picker_->hsb().saturation; }
    double brightness() const { return picker_->hsb().brightness; }
    double alpha() const { return picker_->color().alpha; }
    bool showsAlpha() const { return picker_->showsAlpha(); }
    QString hexText() const { return QString::fromStdString(picker_->hexText()); }
    QString startHexText() const;

    Q_INVOKABLE void setHSB(double hue, double saturation, double brightness);
    Q_INVOKABLE void setAlpha(double alpha);
    /// Returns false and changes nothing if the text is not a color.
    Q_INVOKABLE bool setHexText(const QString& text);
    /// Closes the picker with the color and adds it to the recent colors.
    Q_INVOKABLE void accept();
    void dismiss() override;

  signals:
    void changed();

  private:
    std::shared_ptr<SWColorAlert> picker_;
    RecentColors& recentColors_;
    Subscription subscription_;
};

} // namespace prismo::settings
