import QtQuick
import Prismo.Settings

// Shown instead of everything else if there is no device.
SettingsWindow {
    id: window

    required property string reason

    Column {
        anchors.centerIn: parent
        width: Math.min(parent.width - 64, 420)
        spacing: 8

        Label {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: qsTr("No Device")
            font.pixelSize: 22
            font.weight: Font.DemiBold
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        Label {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: window.reason
            color: Theme.secondaryLabel
            wrapMode: Text.Wrap
            elide: Text.ElideNone
            Accessible.role: Accessible.AlertMessage
            Accessible.name: text
        }
    }
}
