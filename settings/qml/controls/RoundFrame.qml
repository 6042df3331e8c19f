import QtQuick
import Prismo.Settings

// Rounds the corners of the item below by painting over them in the sheet's color: items cannot be clipped to a
// round shape.
Rectangle {
    id: frame

    required property real corner

    anchors.fill: parent
    anchors.margins: -4
    radius: corner + 4
    color: "transparent"
    border.color: Theme.sheet
    border.width: 4
    antialiasing: true

    Rectangle {
        anchors.fill: parent
        anchors.margins: 4
        radius: frame.corner
        color: "transparent"
        border.color: Theme.outline
        antialiasing: true
    }
}
