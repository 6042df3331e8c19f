import QtQuick
import Prismo.Settings

// An app icon. Without an image, it shows the first letter of the name.
Item {
    id: icon

    required property string source
    required property string name
    property real size: 29

    implicitWidth: size
    implicitHeight: size

    Rectangle {
        anchors.fill: parent
        visible: picture.status !== Image.Ready && picture.status !== Image.Loading
        radius: icon.size * 0.225
        color: Theme.placeholder
        antialiasing: true

        Label {
            anchors.centerIn: parent
            text: icon.name.trim().charAt(0).toUpperCase()
            color: Theme.placeholderLabel
            font.pixelSize: icon.size * 0.52
            font.weight: Font.DemiBold
        }
    }
    Image {
        id: picture
        anchors.fill: parent
        source: icon.source === "" ? "" : icon.source + "/icon"
        sourceSize.width: icon.size * 2
        sourceSize.height: icon.size * 2
        fillMode: Image.PreserveAspectFit
        asynchronous: true
        smooth: true
    }
}
