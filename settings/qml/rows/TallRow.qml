import QtQuick
import Prismo.Settings

// A taller link row with a large icon and title.
TableRow {
    id: row

    required property string image
    required property bool opensPage
    required property real rowHeight

    implicitHeight: Math.max(Theme.rowHeight, Math.round(rowHeight))

    Accessible.role: Accessible.Button

    AppIcon {
        id: icon
        anchors.verticalCenter: parent.verticalCenter
        size: Math.min(59, row.height - 16)
        source: row.image
        name: row.title
        opacity: row.isEnabled ? 1 : 0.45
    }
    RowTitle {
        line: row
        anchors.left: icon.right
        anchors.leftMargin: 14
        anchors.right: parent.right
        anchors.rightMargin: 20
        font.weight: Font.Medium
        maximumLineCount: 2
    }
    Chevron {
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        visible: row.opensPage
    }
}
