#include "settings/window/KeyboardUse.h"

#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>

namespace prismo::settings {

KeyboardUse::KeyboardUse() { QCoreApplication::instance()->installEventFilter(this); }

bool KeyboardUse::eventFilter(QObject* watched, QEvent* event) {
    const bool isKey = event->type() == QEvent::KeyPress;
    const bool isPointer = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::TouchBegin;
    if (isKey || isPointer || event->type() == QEvent::KeyRelease)
        key_ = isKey ? static_cast<const QKeyEvent*>(event)->key() : 0;
    if ((isKey || isPointer) && isActive_ != isKey) {
        isActive_ = isKey;
        emit isActiveChanged();
    }
    return QObject::eventFilter(watched, event);
}

} // namespace prismo::settings
