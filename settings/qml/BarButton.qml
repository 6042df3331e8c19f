import QtQuick
import Prismo.Settings

// A button of a bar or sheet that is nothing but its text.
Item {
    id: button

    property string text
    property color color: Theme.accent
    property bool isStrong: false
    property string accessibleName: text
    default property alias content: holder.data
    signal clicked

    implicitWidth: Math.max(Theme.barHeight, label.implicitWidth + 2 * Theme.gutter, holder.childrenRect.width)
    implicitHeight: Theme.barHeight
    activeFocusOnTab: true
    opacity: !enabled ? 0.4 : area.pressed ? 0.45 : 1

    Accessible.role: Accessible.Button
    Accessible.name: accessibleName
    Accessible.focusable: true
    Accessible.onPressAction: button.clicked()

    Keys.onSpacePressed: button.clicked()
    Keys.onReturnPressed: button.clicked()
    Keys.onEnterPressed: button.clicked()

    Label {
        id: label
        anchors.centerIn: parent
        text: button.text
        color: button.color
        font.weight: button.isStrong ? Font.DemiBold : Font.Normal
        Accessible.ignored: true
    }
    Item {
        id: holder
        anchors.fill: parent
    }
    MouseArea {
        id: area
        anchors.fill: parent
        onClicked: button.clicked()
    }
    FocusRing {
        target: button
        anchors.margins: 3
    }
}
