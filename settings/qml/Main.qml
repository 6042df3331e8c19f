import QtQuick
import Prismo.Settings

SettingsWindow {
    id: window

    required property Phone phone

    PhoneView {
        anchors.fill: parent
        focus: true
        phone: window.phone
    }
}
