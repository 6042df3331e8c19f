import QtQuick
import Prismo.Settings

Rectangle {
    implicitWidth: 28
    implicitHeight: 28
    radius: width / 2
    border.color: Theme.outline
    antialiasing: true

    Behavior on color { ColorAnimation { duration: Theme.quick } }
}
