#include "settings/window/DesktopStyle.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace prismo::settings {

namespace {

// Names from the desktop portal's settings interface.
constexpr const char* service = "org.freedesktop.portal.Desktop";
constexpr const char* path = "/org/freedesktop/portal/desktop";
constexpr const char* interface = "org.freedesktop.portal.Settings";
constexpr const char* appearance = "org.freedesktop.appearance";
constexpr const char* colorScheme = "color-scheme";

} // namespace

DesktopStyle::DesktopStyle() {
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    // A slot connected by name needs its argument types registered.
    qRegisterMetaType<QDBusVariant>();
    bus.connect(service, path, interface, "SettingChanged", this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    auto question = QDBusMessage::createMethodCall(service, path, interface, "Read");
    question << appearance << colorScheme;
    const auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* finished) {
        const QDBusPendingReply<QDBusVariant> reply = *finished;
        // The portal wraps its answer in two variants.
        if (reply.isValid()) setScheme(reply.value().variant().value<QDBusVariant>().variant());
        finished->deleteLater();
    });
}

void DesktopStyle::settingChanged(const QString& group, const QString& key, const QDBusVariant& value) {
    if (group == appearance && key == colorScheme) setScheme(value.variant());
}

void DesktopStyle::setScheme(const QVariant& value) {
    const auto number = value.toUInt();
    const auto scheme = number == 1 ? Scheme::Dark : number == 2 ? Scheme::Light : Scheme::NoPreference;
    if (scheme == scheme_) return;
    scheme_ = scheme;
    emit schemeChanged();
}

} // namespace prismo::settings
