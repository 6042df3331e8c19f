import QtQuick
import Prismo.Settings

TableRow {
    id: row

    required property color swatch

    explanation: swatch.toString()

    Accessible.role: Accessible.Button

    titleHeight: label.implicitHeight

    RowTitle {
        id: label
        line: row
        anchors.left: parent.left
        anchors.right: dot.left
        anchors.rightMargin: 12
    }
    Swatch {
        id: dot
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        color: row.swatch
        opacity: row.isEnabled ? 1 : 0.4
    }
}
