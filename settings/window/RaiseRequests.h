#pragma once

#include <memory>
#include <QObject>

class QSocketNotifier;
class QWindow;

namespace prismo::settings {

/// Puts the window to the front when a later start of the program asks for it.
class RaiseRequests : public QObject {
  public:
    /// The socket is the supervisor's; -1 for none. What this program starts does not get it.
    RaiseRequests(int socket, QWindow& window);
    ~RaiseRequests() override;

  private:
    void raise();

    QWindow& window_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace prismo::settings
