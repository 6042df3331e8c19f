import QtQuick
import Prismo.Settings

TableRow {
    id: row

    property color tint: Theme.accent

    Accessible.role: Accessible.Button

    titleHeight: label.implicitHeight

    RowTitle {
        id: label
        line: row
        anchors.left: parent.left
        anchors.right: parent.right
        color: row.isEnabled ? row.tint : Theme.disabledLabel
    }
}
