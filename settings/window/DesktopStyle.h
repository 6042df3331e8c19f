#pragma once

#include <QDBusVariant>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace prismo::settings {

/// The desktop's preference for light or dark, from its portal. Follows later changes.
class DesktopStyle : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(prismo::settings::DesktopStyle::Scheme scheme READ scheme NOTIFY schemeChanged)

  public:
    /// The values are the portal's; QML requires capital names.
    enum class Scheme {
        /// Also if there is no portal, and before it has answered.
        NoPreference,
        Dark,
        Light,
    };
    Q_ENUM(Scheme)

    /// Asks the portal without waiting for the answer.
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
