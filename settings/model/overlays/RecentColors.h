#pragma once

#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace prismo::settings {

/// The colours that were picked last, as texts "#rrggbb", the newest first. They are the window's own and are
/// kept in its state file.
class RecentColors : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The screen has them")
    Q_PROPERTY(QStringList texts READ texts NOTIFY changed)
    Q_PROPERTY(int most MEMBER most CONSTANT)

  public:
    /// So many are kept.
    static constexpr int most = 8;

    /// `stateFile` is read now and written at each addition; "" keeps them in memory only.
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
