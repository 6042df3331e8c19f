#pragma once

#include <optional>
#include <QList>
#include <QObject>
#include <QRect>
#include <QTimer>

class QWindow;

namespace prismo::settings {

/// Keeps the window's position and size from one start to the next.
class WindowPlace : public QObject {
  public:
    /// If `stateFile` is "", nothing is kept.
    explicit WindowPlace(QString stateFile);

    /// The kept place, moved onto these screens if needed; nullopt if there is none or it is damaged.
    std::optional<QRect> kept(const QList<QRect>& screens) const;
    /// Starts keeping the place of this window.
    void follow(QWindow& window);

  private:
    void keep(const QWindow& window) const;

    QString stateFile_;
    /// Delays saving: a dragged window changes with every step.
    QTimer settled_;
};

} // namespace prismo::settings
