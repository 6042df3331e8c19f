import QtQuick
import Prismo.Settings

TableRow {
    id: row

    required property bool isChecked
    property color litColor: Theme.switchOn

    Accessible.role: Accessible.CheckBox
    Accessible.checkable: true
    Accessible.checked: isChecked
    Accessible.onToggleAction: row.activate()

    titleHeight: label.implicitHeight

    RowTitle {
        id: label
        line: row
        anchors.left: parent.left
        anchors.right: toggle.left
        anchors.rightMargin: 12
    }
    Toggle {
        id: toggle
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        isOn: row.isChecked
        litColor: row.litColor
        opacity: row.isEnabled ? 1 : 0.45
    }
}
