import QtQuick
import Prismo.Settings

// The position in a list, shown while it moves.
Rectangle {
    id: thumb

    required property ListView list

    y: 3 + list.visibleArea.yPosition * (list.height - 6)
    width: 3
    height: Math.max(24, list.visibleArea.heightRatio * (list.height - 6))
    radius: 1.5
    visible: list.visibleArea.heightRatio < 1
    color: Theme.scrollThumb
    opacity: list.moving ? 1 : 0

    Behavior on opacity {
        NumberAnimation { duration: thumb.list.moving ? 100 : 500 }
    }
}
