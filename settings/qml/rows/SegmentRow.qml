pragma ComponentBehavior: Bound

import QtQuick
import Prismo.Settings

TableRow {
    id: row

    required property var choices
    required property int selected
    property color thumbColor: Theme.segmentThumb
    property color thumbLabel: Theme.label
    signal chosen(line: int, choice: int)

    function choose(choice: int) {
        if (row.enabled && choice >= 0 && choice < row.choices.length && choice !== row.selected)
            row.chosen(row.index, choice);
    }

    isTappable: false
    implicitHeight: 52
    explanation: selected >= 0 ? choices[selected] : ""

    Accessible.role: Accessible.Grouping

    Keys.onLeftPressed: row.choose(row.selected - 1)
    Keys.onRightPressed: row.choose(row.selected + 1)
    Keys.onSpacePressed: row.choose((row.selected + 1) % row.choices.length)

    Rectangle {
        id: track
        anchors.verticalCenter: parent.verticalCenter
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: -6
        anchors.rightMargin: -6
        height: 36
        radius: 9
        color: Theme.segmentTrack
        opacity: row.isEnabled ? 1 : 0.5
        antialiasing: true

        readonly property real partWidth: width / Math.max(1, row.choices.length)

        Rectangle {
            x: row.selected * track.partWidth + 2
            y: 2
            visible: row.selected >= 0
            width: track.partWidth - 4
            height: track.height - 4
            radius: 7
            color: row.thumbColor
            border.color: Theme.segmentOutline
            antialiasing: true

            Behavior on x {
                NumberAnimation { duration: 220; easing.type: Easing.OutCubic }
            }
        }
        Repeater {
            model: row.choices

            Item {
                id: part

                required property int index
                required property string modelData
                readonly property bool isSelected: index === row.selected

                x: index * track.partWidth
                width: track.partWidth
                height: track.height

                Accessible.role: Accessible.RadioButton
                Accessible.name: modelData
                Accessible.checkable: true
                Accessible.checked: isSelected
                Accessible.focusable: false
                Accessible.onPressAction: row.choose(index)

                Label {
                    anchors.fill: parent
                    anchors.margins: 6
                    text: part.modelData
                    horizontalAlignment: Text.AlignHCenter
                    font.pixelSize: 14
                    font.weight: part.isSelected ? Font.DemiBold : Font.Medium
                    color: part.isSelected ? row.thumbLabel : Theme.label
                    Accessible.ignored: true
                }
                MouseArea {
                    anchors.fill: parent
                    onClicked: row.choose(part.index)
                }
            }
        }
    }
}
