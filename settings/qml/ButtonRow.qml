import QtQuick
import Prismo.Settings

TableRow {
    id: row

    property color tint: Theme.accent

    Accessible.role: Accessible.Button

    implicitHeight: Math.max(Theme.rowHeight, label.implicitHeight + 22)

    Label {
        id: label
        anchors.fill: parent
        text: row.title
        wrapMode: Text.Wrap
        maximumLineCount: 3
        color: row.isEnabled ? row.tint : Theme.disabledLabel
    }
}
