#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace prismo::settings {

/// What the application presents over the pages and the person has to end.
class Overlay : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application presents them")

  public:
    /// Ends it without its purpose being served, as a person does who turns away.
    Q_INVOKABLE virtual void dismiss() = 0;
};

} // namespace prismo::settings
