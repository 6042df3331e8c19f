#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace prismo::settings {

/// Whether the person works with the keyboard at the moment, and wants to see where the focus is.
class KeyboardUse : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool isActive READ isActive NOTIFY isActiveChanged)

  public:
    KeyboardUse();

    bool isActive() const { return isActive_; }

  signals:
    void isActiveChanged();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool isActive_ = false;
};

} // namespace prismo::settings
