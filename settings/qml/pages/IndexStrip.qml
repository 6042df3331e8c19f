pragma ComponentBehavior: Bound

import QtQuick
import Prismo.Settings

// The initial letters of a long table. Touching one scrolls to its rows.
Item {
    id: strip

    // A list of {label, row}, in table order.
    required property var entries
    property color tint: Theme.accent
    // How many letters fit. If there are more, some are skipped at even intervals.
    readonly property int room: Math.max(1, Math.floor((height - 24) / 14))
    readonly property int count: Math.min(entries.length, room)
    // The table's current row, and the position of the shown letter for it.
    required property int row
    readonly property int current: {
        for (let position = strip.count - 1; position > 0; --position)
            if (strip.entryAt(position).row <= strip.row)
                return position;
        return 0;
    }
    readonly property string letter: strip.count > 0 ? strip.entryAt(strip.current).label : ""
    signal chosen(int row)

    function entryAt(position: int): var {
        return strip.entries[Math.floor(position * strip.entries.length / strip.count)];
    }

    function choose(position: int) {
        if (strip.enabled && strip.count > 0)
            strip.chosen(strip.entryAt(Math.max(0, Math.min(strip.count - 1, position))).row);
    }

    implicitWidth: 20
    activeFocusOnTab: visible

    Accessible.role: Accessible.List
    Accessible.name: qsTr("Index")
    Accessible.description: letter
    Accessible.focusable: true

    Keys.onDownPressed: strip.choose(strip.current + 1)
    Keys.onUpPressed: strip.choose(strip.current - 1)

    Column {
        id: letters
        anchors.verticalCenter: parent.verticalCenter
        width: parent.width

        Repeater {
            model: strip.count

            Label {
                id: letter

                required property int index
                readonly property bool isCurrent: index === strip.current

                width: letters.width
                height: 14
                horizontalAlignment: Text.AlignHCenter
                text: strip.entryAt(index).label
                color: isCurrent && strip.activeFocus ? Theme.label : strip.tint
                font.pixelSize: 11
                font.weight: Font.DemiBold

                Accessible.role: Accessible.Button
                Accessible.name: text
                Accessible.focusable: false
                Accessible.selectable: true
                Accessible.selected: isCurrent
                Accessible.onPressAction: strip.choose(letter.index)
            }
        }
    }
    MouseArea {
        anchors.fill: parent
        anchors.leftMargin: -4
        preventStealing: true
        onPressed: mouse => strip.choose(Math.floor((mouse.y - letters.y) / 14))
        onPositionChanged: mouse => strip.choose(Math.floor((mouse.y - letters.y) / 14))
    }
    FocusRing {
        target: strip
        radius: 6
    }
}
