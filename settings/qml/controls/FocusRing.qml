import QtQuick
import Prismo.Settings

// The ring around the focused item, shown while the keyboard is in use.
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
