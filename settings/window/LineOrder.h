#pragma once

#include "settings/model/Refresh.h"

#include <QObject>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace prismo::settings {

/// Keeps the lines of a list as assistive technology needs them: its children are in line order, whenever
/// they were created, and lines out of view are included, which newer versions of Qt leave out.
class LineOrder : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// The parent of the lines. Each line has an `index` property.
    Q_PROPERTY(QQuickItem* parentOfLines MEMBER parent_ WRITE setParentOfLines REQUIRED)

  public:
    void setParentOfLines(QQuickItem* parent);

  private:
    void putInOrder();

    QQuickItem* parent_ = nullptr;
    Refresh changes_{[this] { putInOrder(); }};
};

} // namespace prismo::settings
