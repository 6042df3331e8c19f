import QtQuick
import Prismo.Settings

// The look of a switch. The row around it takes the taps.
Rectangle {
    id: toggle

    required property bool isOn
    property color litColor: Theme.switchOn

    implicitWidth: 48
    implicitHeight: 28
    radius: height / 2
    color: isOn ? litColor : Theme.switchOff
    antialiasing: true

    Behavior on color { ColorAnimation { duration: Theme.quick } }

    Rectangle {
        x: toggle.isOn ? toggle.width - width - 2 : 2
        y: 2
        width: toggle.height - 4
        height: width
        radius: width / 2
        color: "#ffffff"
        border.color: "#14000000"
        antialiasing: true

        Behavior on x { NumberAnimation { duration: Theme.quick; easing.type: Easing.OutCubic } }
    }
}
