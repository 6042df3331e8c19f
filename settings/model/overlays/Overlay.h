#pragma once

#include <functional>
#include <memory>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace prismo {
class NSObject;
}

namespace prismo::settings {

class Taps;

/// What the application presents over the pages and the person has to end.
class Overlay : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application presents them")

  public:
    /// Ends it without its purpose being served, as a person does who turns away.
    Q_INVOKABLE virtual void dismiss() = 0;

  protected:
    Overlay(std::shared_ptr<NSObject> source, Taps& taps);

    /// Ends it in that way when its turn comes, unless it has ended by then: it can be seen, and tapped,
    /// until its way out has been drawn. `from` is for the trace, as in `Taps::add`.
    void end(const char* from, std::function<void()> how);

  private:
    std::shared_ptr<NSObject> source_;
    Taps& taps_;
};

} // namespace prismo::settings
