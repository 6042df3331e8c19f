#pragma once

#include "settings/Refresh.h"

#include <QObject>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace prismo::settings {

/// Keeps the lines of a list in their order among its children, whenever they came to be: assistive
/// technology is told the children in that order.
class LineOrder : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// What the lines are children of; each has its position as `index`.
    Q_PROPERTY(QQuickItem* parentOfLines MEMBER parent_ WRITE setParentOfLines REQUIRED)

  public:
    void setParentOfLines(QQuickItem* parent);

  private:
    void sort();

    QQuickItem* parent_ = nullptr;
    Refresh changes_{[this] { sort(); }};
};

} // namespace prismo::settings
