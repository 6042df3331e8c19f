#pragma once

#include "settings/model/Refresh.h"

#include <QObject>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace prismo::settings {

/// Keeps the lines of a list as assistive technology needs them: in their order among its children, whenever
/// they came to be, and none left out because it is out of view, as newer versions of Qt do.
class LineOrder : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// What the lines are children of; each has its position as `index`.
    Q_PROPERTY(QQuickItem* parentOfLines MEMBER parent_ WRITE setParentOfLines REQUIRED)

  public:
    void setParentOfLines(QQuickItem* parent);

  private:
    void putInOrder();

    QQuickItem* parent_ = nullptr;
    Refresh changes_{[this] { putInOrder(); }};
};

} // namespace prismo::settings
