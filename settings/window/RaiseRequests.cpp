#include "settings/window/RaiseRequests.h"

#include <array>
#include <fcntl.h>
#include <QSocketNotifier>
#include <QWindow>
#include <sys/socket.h>

namespace prismo::settings {

RaiseRequests::RaiseRequests(int socket, QWindow& window) : window_(window) {
    if (socket < 0) return;
    ::fcntl(socket, F_SETFD, FD_CLOEXEC);
    notifier_ = std::make_unique<QSocketNotifier>(socket, QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, &RaiseRequests::raise);
}

RaiseRequests::~RaiseRequests() = default;

void RaiseRequests::raise() {
    std::array<char, 1024> token{};
    const auto size = ::recv(static_cast<int>(notifier_->socket()), token.data(), token.size(), MSG_DONTWAIT);
    if (size < 0) return;
    // Qt reads the desktop's permission to take the focus from here.
    if (size > 0) qputenv("XDG_ACTIVATION_TOKEN", QByteArray(token.data(), size));
    window_.setWindowStates(window_.windowStates() & ~Qt::WindowMinimized);
    window_.show();
    window_.raise();
    window_.requestActivate();
}

} // namespace prismo::settings
