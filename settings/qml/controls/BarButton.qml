import QtQuick
import Prismo.Settings

// A text button for bars, sheets and alerts.
Item {
    id: button

    property string text
    property color color: Theme.accent
    property bool isStrong: false
    property string accessibleName: text
    default property alias content: holder.data
    signal clicked

    function click() {
        if (button.enabled)
            button.clicked();
    }

    implicitWidth: Math.max(Theme.barHeight, label.implicitWidth + 2 * Theme.gutter, holder.childrenRect.width)
    implicitHeight: Theme.barHeight
    activeFocusOnTab: true
    opacity: !enabled ? 0.4 : area.pressed ? 0.45 : 1

    Accessible.role: Accessible.Button
    Accessible.name: accessibleName
    Accessible.focusable: true
    Accessible.onPressAction: button.click()

    Keys.onSpacePressed: button.click()
    Keys.onReturnPressed: button.click()
    Keys.onEnterPressed: button.click()

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
        onClicked: button.click()
    }
    FocusRing {
        target: button
        anchors.margins: 3
    }
}
