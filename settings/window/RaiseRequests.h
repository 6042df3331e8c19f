#pragma once

#include <memory>
#include <QObject>

class QSocketNotifier;
class QWindow;

namespace prismo::settings {

/// Raises the window when a later instance of the program asks for it.
class RaiseRequests : public QObject {
  public:
    /// The supervisor owns the socket; -1 if there is none. Child processes do not inherit it.
    RaiseRequests(int socket, QWindow& window);
    ~RaiseRequests() override;

  private:
    void raise();

    QWindow& window_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace prismo::settings
