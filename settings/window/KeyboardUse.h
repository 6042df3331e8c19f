#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace prismo::settings {

/// Whether the user currently works with the keyboard, so that the focus should be visible.
class KeyboardUse : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool isActive READ isActive NOTIFY isActiveChanged)
    /// The pressed key as a Qt::Key, or 0. It shows from which side Tab brings the focus.
    Q_PROPERTY(int key READ key)

  public:
    KeyboardUse();

    bool isActive() const { return isActive_; }
    int key() const { return key_; }

  signals:
    void isActiveChanged();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool isActive_ = false;
    int key_ = 0;
};

} // namespace prismo::settings
