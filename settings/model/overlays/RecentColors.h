#pragma once

#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace prismo::settings {

/// The most recently picked colors as "#rrggbb" texts, newest first. They belong to the window, not the
/// device, and are kept in its state file.
class RecentColors : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The phone has one")
    Q_PROPERTY(QStringList texts READ texts NOTIFY changed)
    Q_PROPERTY(int most MEMBER most CONSTANT)

  public:
    /// The number of colors to keep.
    static constexpr int most = 8;

    /// Reads `stateFile` now and writes it at each addition; "" keeps the colors in memory only.
    explicit RecentColors(QString stateFile);

    const QStringList& texts() const { return texts_; }
    void add(const QString& text);

  signals:
    void changed();

  private:
    QString stateFile_;
    QStringList texts_;
};

} // namespace prismo::settings
