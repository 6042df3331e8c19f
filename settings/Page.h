#pragma once

#include "settings/Refresh.h"
#include "settings/Table.h"

#include <memory>
#include <QColor>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace prismo::settings {

/// One page of the stack for QML: its title, its bar button, the colours of its controls, its table.
class Page : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The stack makes them")
    Q_PROPERTY(QString title MEMBER title_ NOTIFY changed)
    Q_PROPERTY(bool hasRightButton MEMBER hasRightButton_ NOTIFY changed)
    /// "" where the button has no image that can be shown.
    Q_PROPERTY(QString rightImage MEMBER rightImage_ NOTIFY changed)
    /// What stands for that image.
    Q_PROPERTY(QString rightLabel MEMBER rightLabel_ NOTIFY changed)
    // An invalid colour stands for the window's own.
    Q_PROPERTY(QColor tint MEMBER tint_ NOTIFY changed)
    Q_PROPERTY(QColor segmentTint MEMBER segmentTint_ NOTIFY changed)
    Q_PROPERTY(QColor switchTint MEMBER switchTint_ NOTIFY changed)
    Q_PROPERTY(prismo::settings::Table* table READ table CONSTANT)

  public:
    Page(std::shared_ptr<UIViewController> controller, Taps& taps);

    const std::shared_ptr<UIViewController>& controller() const { return controller_; }
    Table* table() { return &table_; }

    /// A person taps the right button of the navigation bar.
    Q_INVOKABLE void tapRightButton();

  signals:
    void changed();

  private:
    void look();

    std::shared_ptr<UIViewController> controller_;
    Taps& taps_;
    Table table_;
    QString title_;
    bool hasRightButton_ = false;
    QString rightImage_;
    QString rightLabel_;
    QColor tint_;
    QColor segmentTint_;
    QColor switchTint_;
    Refresh changes_{[this] { look(); }};
};

} // namespace prismo::settings
