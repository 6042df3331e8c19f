import QtQuick
import Prismo.Settings

TableRow {
    id: row

    required property color swatch

    explanation: swatch.toString()

    Accessible.role: Accessible.Button

    implicitHeight: Math.max(Theme.rowHeight, label.implicitHeight + 22)

    Label {
        id: label
        anchors.left: parent.left
        anchors.right: dot.left
        anchors.rightMargin: 12
        height: parent.height
        text: row.title
        color: row.labelColor
        wrapMode: Text.Wrap
        maximumLineCount: 3
    }
    Swatch {
        id: dot
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        color: row.swatch
        opacity: row.isEnabled ? 1 : 0.4
    }
}
