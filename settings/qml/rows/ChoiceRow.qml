import QtQuick
import Prismo.Settings

TableRow {
    id: row

    required property bool isChecked
    property color tint: Theme.accent

    Accessible.role: Accessible.RadioButton
    Accessible.checkable: true
    Accessible.checked: isChecked

    titleHeight: label.implicitHeight

    RowTitle {
        id: label
        line: row
        width: parent.width - 28
    }
    CheckMark {
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        color: row.tint
        opacity: row.isChecked ? 1 : 0
        scale: row.isChecked ? 1 : 0.6

        Behavior on opacity { NumberAnimation { duration: Theme.quick } }
        Behavior on scale { NumberAnimation { duration: Theme.quick; easing.type: Easing.OutBack } }
    }
}
