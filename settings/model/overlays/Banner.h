#pragma once

#include "settings/model/Refresh.h"

#include "platform/uikit/views/UIButton.h"

#include <memory>
#include <QColor>
#include <QObject>
#include <QRectF>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

namespace prismo::settings {

class Taps;

/// A button placed directly in the window, above all pages, for QML. Its opacity follows the view's running
/// animation frame by frame.
class Banner : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The phone creates banners")
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QColor titleColor READ titleColor NOTIFY changed)
    Q_PROPERTY(QColor color READ color NOTIFY changed)
    Q_PROPERTY(double fontSize READ fontSize NOTIFY changed)
    Q_PROPERTY(bool isBold READ isBold NOTIFY changed)
    Q_PROPERTY(QRectF frame READ frame NOTIFY changed)
    Q_PROPERTY(bool isHidden READ isHidden NOTIFY changed)
    Q_PROPERTY(double opacity READ opacity NOTIFY opacityChanged)

  public:
    Banner(std::shared_ptr<UIButton> button, Taps& taps);

    const std::shared_ptr<UIButton>& button() const { return button_; }
    QString title() const { return QString::fromStdString(button_->title()); }
    QColor titleColor() const;
    QColor color() const;
    double fontSize() const { return button_->titleLabel()->font().pointSize; }
    bool isBold() const { return button_->titleLabel()->font().isBold; }
    QRectF frame() const;
    bool isHidden() const { return button_->isHidden(); }
    double opacity() const { return button_->presentationAlpha(); }

    Q_INVOKABLE void tap();

  signals:
    void changed();
    void opacityChanged();

  private:
    void look();

    std::shared_ptr<UIButton> button_;
    Taps& taps_;
    Refresh changes_{[this] { look(); }};
    QTimer frames_;
};

} // namespace prismo::settings
