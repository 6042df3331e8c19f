import QtQuick
import Prismo.Settings

TableRow {
    id: row

    required property string detail
    required property string image
    required property bool opensPage
    readonly property bool hasImage: image !== ""

    separatorInset: hasImage ? Theme.gutter + 41 : Theme.gutter

    explanation: detail

    Accessible.role: Accessible.Button

    AppIcon {
        id: icon
        anchors.verticalCenter: parent.verticalCenter
        visible: row.hasImage
        source: row.image
        name: row.title
        opacity: row.isEnabled ? 1 : 0.45
    }
    RowTitle {
        id: label
        line: row
        x: row.hasImage ? 41 : 0
        width: Math.min(implicitWidth, parent.width - x - (row.opensPage ? 20 : 0)
                        - (row.detail === "" ? 0 : Math.min(detailLabel.implicitWidth, 90) + 12))
        wrapMode: Text.NoWrap
    }
    Label {
        id: detailLabel
        anchors.left: label.right
        anchors.leftMargin: 12
        anchors.right: parent.right
        anchors.rightMargin: row.opensPage ? 20 : 0
        height: parent.height
        horizontalAlignment: Text.AlignRight
        text: row.detail
        color: row.isEnabled ? Theme.secondaryLabel : Theme.disabledLabel
        Accessible.ignored: true
    }
    Chevron {
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        visible: row.opensPage
    }
}
