#pragma once

#include <optional>
#include <QList>
#include <QObject>
#include <QRect>
#include <QTimer>

class QWindow;

namespace prismo::settings {

/// Where the window stands and how large it is, kept from one start to the next.
class WindowPlace : public QObject {
  public:
    /// "" keeps nothing.
    explicit WindowPlace(QString stateFile);

    /// Where the window is to stand, on these screens. Nothing where none is kept, or what is kept is
    /// damaged.
    std::optional<QRect> kept(const QList<QRect>& screens) const;
    /// Keeps the place of this window from now on.
    void follow(QWindow& window);

  private:
    void keep(const QWindow& window) const;

    QString stateFile_;
    /// A window that is dragged changes with every step.
    QTimer settled_;
};

} // namespace prismo::settings
