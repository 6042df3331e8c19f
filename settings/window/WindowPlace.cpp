#include "settings/window/WindowPlace.h"

#include <algorithm>
#include <QSettings>
#include <QWindow>
#include <utility>

namespace prismo::settings {

namespace {

constexpr const char* placeKey = "window";
constexpr QSize smallest(320, 420);

/// The nearest position in the range; its beginning if the range is empty.
int within(int at, int begin, int end) { return std::max(begin, std::min(at, end)); }

} // namespace

WindowPlace::WindowPlace(QString stateFile) : stateFile_(std::move(stateFile)) {
    settled_.setSingleShot(true);
    settled_.setInterval(std::chrono::milliseconds(250));
}

std::optional<QRect> WindowPlace::kept(const QList<QRect>& screens) const {
    if (stateFile_.isEmpty() || screens.isEmpty()) return std::nullopt;
    const auto place = QSettings(stateFile_, QSettings::IniFormat).value(placeKey).toRect();
    if (place.width() < smallest.width() || place.height() < smallest.height()) return std::nullopt;
    // The screen may be gone, or smaller than before.
    const auto shown = [&](const QRect& screen) {
        const auto part = screen & place;
        return qint64(part.width()) * part.height();
    };
    const auto screen = *std::ranges::max_element(screens, {}, shown);
    const auto size = place.size().boundedTo(screen.size());
    return QRect(QPoint(within(place.x(), screen.left(), screen.right() + 1 - size.width()),
                        within(place.y(), screen.top(), screen.bottom() + 1 - size.height())),
                 size);
}

void WindowPlace::follow(QWindow& window) {
    if (stateFile_.isEmpty()) return;
    const auto changed = [this] { settled_.start(); };
    for (const auto signal :
         {&QWindow::xChanged, &QWindow::yChanged, &QWindow::widthChanged, &QWindow::heightChanged})
        connect(&window, signal, this, changed);
    connect(&settled_, &QTimer::timeout, &window, [this, &window] { keep(window); });
    connect(&window, &QWindow::visibleChanged, this, [this, &window](bool isVisible) {
        if (!isVisible && settled_.isActive()) keep(window);
    });
}

void WindowPlace::keep(const QWindow& window) const {
    if (window.windowStates() == Qt::WindowNoState)
        QSettings(stateFile_, QSettings::IniFormat).setValue(placeKey, window.geometry());
}

} // namespace prismo::settings
