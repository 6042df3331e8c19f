import QtQuick
import Prismo.Settings

// A slider on a color gradient.
Adjustable {
    id: slider

    required property string name
    property color from: "#000000"
    property color to: "#ffffff"
    // Draws a checkerboard under the gradient.
    property bool isTransparent: false

    implicitHeight: 32

    Accessible.name: name
    Accessible.description: Math.round(level * 100) + "%"

    Keys.onPressed: event => {
        const step = (event.modifiers & Qt.ShiftModifier) ? 0.1 : 0.01;
        switch (event.key) {
        case Qt.Key_Left:
        case Qt.Key_Down:
            slider.move(slider.level - step);
            break;
        case Qt.Key_Right:
        case Qt.Key_Up:
            slider.move(slider.level + step);
            break;
        case Qt.Key_PageDown:
            slider.move(slider.level - 0.1);
            break;
        case Qt.Key_PageUp:
            slider.move(slider.level + 0.1);
            break;
        case Qt.Key_Home:
            slider.move(0);
            break;
        case Qt.Key_End:
            slider.move(1);
            break;
        default:
            return;
        }
        event.accepted = true;
    }

    Checkers {
        anchors.fill: track
        visible: slider.isTransparent
    }
    Rectangle {
        id: track

        y: 2
        width: parent.width
        height: parent.height - 4
        radius: slider.isTransparent ? 0 : height / 2
        border.color: Theme.outline
        border.width: slider.isTransparent ? 0 : 1
        antialiasing: true
        gradient: Gradient {
            orientation: Gradient.Horizontal
            GradientStop { position: 0; color: slider.from }
            GradientStop { position: 1; color: slider.to }
        }

        RoundFrame {
            visible: slider.isTransparent
            corner: track.height / 2
        }
    }
    Rectangle {
        x: slider.level * (slider.width - width)
        width: slider.height
        height: width
        radius: width / 2
        color: "transparent"
        border.color: "#ffffff"
        border.width: 3
        antialiasing: true

        Rectangle {
            anchors.fill: parent
            anchors.margins: -1
            z: -1
            radius: width / 2
            color: "transparent"
            border.color: "#55000000"
            antialiasing: true
        }
    }
    MouseArea {
        anchors.fill: parent
        preventStealing: true
        onPressed: mouse => slider.move((mouse.x - height / 2) / (width - height))
        onPositionChanged: mouse => slider.move((mouse.x - height / 2) / (width - height))
    }
    FocusRing {
        target: slider
        anchors.margins: -3
        radius: height / 2
    }
}
