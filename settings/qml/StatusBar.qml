import QtQuick
import Prismo.Settings

// The time and the name of the device root.
Item {
    id: bar

    required property string rootName
    required property string rootPath

    implicitHeight: Theme.statusBarHeight

    Label {
        id: time
        x: Theme.gutter
        height: parent.height
        font.pixelSize: 12
        font.weight: Font.DemiBold

        function tick() {
            text = Qt.formatTime(new Date(), "HH:mm");
        }

        Accessible.role: Accessible.Paragraph
        Accessible.name: text

        Component.onCompleted: tick()

        Timer {
            interval: 1000
            running: time.visible
            repeat: true
            onTriggered: time.tick()
        }
    }
    Label {
        anchors.right: parent.right
        anchors.rightMargin: Theme.gutter
        width: Math.min(implicitWidth, parent.width / 2)
        height: parent.height
        text: bar.rootName
        color: Theme.secondaryLabel
        font.pixelSize: 12
        font.weight: Font.Medium

        Accessible.role: Accessible.Paragraph
        Accessible.name: bar.rootPath
    }
}
