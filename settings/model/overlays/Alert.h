#pragma once

#include "settings/model/overlays/Overlay.h"

#include "platform/uikit/views/UIAlertView.h"

#include <memory>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace prismo::settings {

/// An alert, for QML.
class Alert : public prismo::settings::Overlay {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application presents alerts")
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QString message READ message CONSTANT)
    /// The first button cancels.
    Q_PROPERTY(QStringList buttons READ buttons CONSTANT)

  public:
    Alert(std::shared_ptr<UIAlertView> alert, Taps& taps);

    QString title() const;
    QString message() const;
    QStringList buttons() const;
    Q_INVOKABLE void click(int button);
    /// Same as the first button.
    void dismiss() override { click(0); }

  private:
    std::shared_ptr<UIAlertView> alert_;
};

} // namespace prismo::settings
