import QtQuick
import Prismo.Settings

TableRow {
    id: row

    required property string image

    separatorInset: Theme.gutter + 41

    Accessible.role: Accessible.Button

    AppIcon {
        anchors.verticalCenter: parent.verticalCenter
        source: row.image
        name: row.title
    }
    RowTitle {
        line: row
        x: 41
        width: parent.width - x - 16
        wrapMode: Text.NoWrap
    }
}
