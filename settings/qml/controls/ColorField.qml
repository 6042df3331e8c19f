import QtQuick
import Prismo.Settings

// Hue from left to right, saturation from bottom to top, at the current brightness. Its value is the hue.
Adjustable {
    id: field

    required property ColorPicker picker

    // The picker clamps values out of range.
    function pick(hue: real, saturation: real) {
        field.picker.setHSB(hue, saturation, field.picker.brightness);
    }

    implicitHeight: 190
    level: picker.hue
    onMoved: value => field.pick(value, field.picker.saturation)

    Accessible.name: qsTr("Hue and Saturation")
    Accessible.description: qsTr("Hue %1°, saturation %2%").arg(Math.round(picker.hue * 360)).arg(Math.round(picker.saturation * 100))

    Keys.onPressed: event => {
        const step = (event.modifiers & Qt.ShiftModifier) ? 0.1 : 0.01;
        const hue = field.picker.hue;
        const saturation = field.picker.saturation;
        switch (event.key) {
        case Qt.Key_Left:
            field.pick(hue - step, saturation);
            break;
        case Qt.Key_Right:
            field.pick(hue + step, saturation);
            break;
        case Qt.Key_Down:
            field.pick(hue, saturation - step);
            break;
        case Qt.Key_Up:
            field.pick(hue, saturation + step);
            break;
        default:
            return;
        }
        event.accepted = true;
    }

    Rectangle {
        anchors.fill: parent
        gradient: Gradient {
            orientation: Gradient.Horizontal
            GradientStop { position: 0; color: "#ff0000" }
            GradientStop { position: 1 / 6; color: "#ffff00" }
            GradientStop { position: 2 / 6; color: "#00ff00" }
            GradientStop { position: 3 / 6; color: "#00ffff" }
            GradientStop { position: 4 / 6; color: "#0000ff" }
            GradientStop { position: 5 / 6; color: "#ff00ff" }
            GradientStop { position: 1; color: "#ff0000" }
        }
    }
    Rectangle {
        anchors.fill: parent
        gradient: Gradient {
            GradientStop { position: 0; color: "#00ffffff" }
            GradientStop { position: 1; color: "#ffffffff" }
        }
    }
    Rectangle {
        anchors.fill: parent
        color: "#000000"
        opacity: 1 - field.picker.brightness
    }
    RoundFrame {
        corner: 10
    }
    Rectangle {
        x: field.picker.hue * field.width - width / 2
        y: (1 - field.picker.saturation) * field.height - height / 2
        width: 28
        height: 28
        radius: 14
        color: Qt.rgba(field.picker.color.r, field.picker.color.g, field.picker.color.b, 1)
        border.color: "#ffffff"
        border.width: 3
        antialiasing: true

        Rectangle {
            anchors.fill: parent
            anchors.margins: -1
            radius: width / 2
            color: "transparent"
            border.color: "#55000000"
            antialiasing: true
        }
    }
    MouseArea {
        anchors.fill: parent
        preventStealing: true
        onPressed: mouse => field.pick(mouse.x / width, 1 - mouse.y / height)
        onPositionChanged: mouse => field.pick(mouse.x / width, 1 - mouse.y / height)
    }
    FocusRing {
        target: field
        anchors.margins: -4
        radius: 14
    }
}
