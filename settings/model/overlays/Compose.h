#pragma once

#include "settings/model/overlays/Overlay.h"
#include "settings/model/Refresh.h"

#include "platform/social/SLComposeViewController.h"

#include <memory>
#include <QtQml/qqmlregistration.h>

namespace prismo::settings {

/// The sheet for writing a post, for QML.
class Compose : public prismo::settings::Overlay {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application presents sheets")
    Q_PROPERTY(QString service READ service CONSTANT)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)

  public:
    Compose(std::shared_ptr<SLComposeViewController> sheet, Taps& taps);

    QString service() const { return QString::fromStdString(sheet_->serviceName()); }
    QString text() const { return QString::fromStdString(sheet_->text()); }
    void setText(const QString& text) { sheet_->setText(text.toStdString()); }
    Q_INVOKABLE void send();
    void dismiss() override;

  signals:
    void textChanged();

  private:
    std::shared_ptr<SLComposeViewController> sheet_;
    Refresh changes_{[this] { emit textChanged(); }};
};

} // namespace prismo::settings
