import QtQuick
import Prismo.Settings

// Around what has the focus, for who works with the keyboard.
Rectangle {
    required property Item target

    anchors.fill: target
    anchors.margins: -1
    visible: target.activeFocus && KeyboardUse.isActive
    color: "transparent"
    border.color: Theme.accent
    border.width: 2
    radius: Theme.cornerRadius
    z: 10
}
