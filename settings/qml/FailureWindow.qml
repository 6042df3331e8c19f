import QtQuick
import Prismo.Settings

// In place of everything else, where there is no device to work on.
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
