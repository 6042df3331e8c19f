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

/// Something that the application presents over the pages and that the user must close.
class Overlay : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application presents overlays")

  public:
    /// Closes it without a result, as Cancel does.
    Q_INVOKABLE virtual void dismiss() = 0;

  protected:
    Overlay(std::shared_ptr<NSObject> source, Taps& taps);

    /// Queues `how`, which closes the overlay. It is skipped if the overlay is closed by then: the user can
    /// still see and tap it until its exit animation ends. `from` is for the trace, as in `Taps::add`.
    void end(const char* from, std::function<void()> how);

  private:
    std::shared_ptr<NSObject> source_;
    Taps& taps_;
};

} // namespace prismo::settings
