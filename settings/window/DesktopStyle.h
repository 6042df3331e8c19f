#pragma once

#include <QDBusVariant>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace prismo::settings {

/// Whether the desktop is to be light or dark, as its portal tells and keeps telling.
class DesktopStyle : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(prismo::settings::DesktopStyle::Scheme scheme READ scheme NOTIFY schemeChanged)

  public:
    /// The numbers are the portal's; QML wants capital names.
    enum class Scheme {
        /// Also where there is no portal, and before it has answered.
        NoPreference,
        Dark,
        Light,
    };
    Q_ENUM(Scheme)

    /// Asks, and waits for nothing.
    DesktopStyle();

    Scheme scheme() const { return scheme_; }

  signals:
    void schemeChanged();

  private slots:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

  private:
    void setScheme(const QVariant& value);

    Scheme scheme_ = Scheme::NoPreference;
};

} // namespace prismo::settings
