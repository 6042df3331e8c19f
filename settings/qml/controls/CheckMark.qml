import QtQuick
import Prismo.Settings

Item {
    id: mark

    property color color: Theme.accent

    implicitWidth: 16
    implicitHeight: 14

    Rectangle {
        x: 0.2
        y: 8.3
        width: 6.8
        height: 2.2
        radius: 1.1
        rotation: 45
        color: mark.color
        antialiasing: true
    }
    Rectangle {
        x: 3
        y: 6
        width: 13
        height: 2.2
        radius: 1.1
        rotation: -52
        color: mark.color
        antialiasing: true
    }
}
