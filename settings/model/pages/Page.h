#pragma once

#include "settings/model/pages/Table.h"
#include "settings/model/Refresh.h"

#include "platform/uikit/controllers/UIBarButtonItem.h"

#include <memory>
#include <QColor>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace prismo::settings {

/// One page of the stack for QML: its title, bar button, control colors and table.
class Page : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The stack creates pages")
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(bool hasRightButton READ hasRightButton NOTIFY changed)
    /// "" if the button has no image that can be shown.
    Q_PROPERTY(QString rightImage READ rightImage NOTIFY changed)
    /// The text that replaces a missing image, and the accessible name.
    Q_PROPERTY(QString rightLabel READ rightLabel NOTIFY changed)
    // An invalid color means the window's default.
    Q_PROPERTY(QColor tint READ tint NOTIFY changed)
    Q_PROPERTY(QColor segmentTint READ segmentTint NOTIFY changed)
    Q_PROPERTY(QColor switchTint READ switchTint NOTIFY changed)
    Q_PROPERTY(prismo::settings::Table* table READ table CONSTANT)

  public:
    Page(std::shared_ptr<UIViewController> controller, Taps& taps);

    const std::shared_ptr<UIViewController>& controller() const { return controller_; }
    QString title() const { return QString::fromStdString(controller_->title()); }
    bool hasRightButton() const { return rightButton() != nullptr; }
    QString rightImage() const;
    QString rightLabel() const;
    QColor tint() const;
    QColor segmentTint() const;
    QColor switchTint() const;
    Table* table() { return &table_; }

    /// The user taps the right button of the navigation bar.
    Q_INVOKABLE void tapRightButton();

  signals:
    void changed();

  private:
    const std::shared_ptr<UIBarButtonItem>& rightButton() const;
    void look();

    std::shared_ptr<UIViewController> controller_;
    Taps& taps_;
    Table table_;
    Refresh changes_{[this] { look(); }};
};

} // namespace prismo::settings
