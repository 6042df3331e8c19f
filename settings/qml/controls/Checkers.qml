pragma ComponentBehavior: Bound

import QtQuick

// The checkerboard under a translucent color.
Item {
    id: checkers

    readonly property int side: 8
    readonly property int columns: Math.ceil(width / side)

    clip: true

    Rectangle {
        anchors.fill: parent
        color: "#ffffff"
    }
    Repeater {
        model: Math.min(400, Math.max(0, Math.ceil(checkers.columns * Math.ceil(checkers.height / checkers.side) / 2)))

        Rectangle {
            required property int index
            readonly property int line: Math.floor(index * 2 / checkers.columns)

            x: (index * 2 % checkers.columns + (checkers.columns % 2 === 0 ? line % 2 : 0)) * checkers.side
            y: line * checkers.side
            width: checkers.side
            height: checkers.side
            color: "#cccccc"
        }
    }
}
