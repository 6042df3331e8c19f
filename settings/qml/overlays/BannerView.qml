import QtQuick
import Prismo.Settings

// A banner button above all pages.
Rectangle {
    id: view

    required property Banner modelData

    // Checks `enabled` because assistive technology can press a button below an overlay.
    function tap() {
        if (view.enabled)
            view.modelData.tap();
    }

    x: modelData.frame.x
    y: modelData.frame.y
    width: modelData.frame.width
    height: modelData.frame.height
    visible: !modelData.isHidden && opacity > 0
    enabled: visible
    opacity: modelData.opacity
    color: modelData.color
    activeFocusOnTab: visible

    Accessible.role: Accessible.Button
    Accessible.name: modelData.title
    Accessible.focusable: true
    Accessible.onPressAction: view.tap()

    Keys.onSpacePressed: view.tap()
    Keys.onReturnPressed: view.tap()
    Keys.onEnterPressed: view.tap()

    Label {
        anchors.fill: parent
        anchors.leftMargin: 8
        anchors.rightMargin: 8
        horizontalAlignment: Text.AlignHCenter
        text: view.modelData.title
        color: view.modelData.titleColor
        font.pixelSize: view.modelData.fontSize
        font.bold: view.modelData.isBold
        Accessible.ignored: true
    }
    MouseArea {
        anchors.fill: parent
        cursorShape: Qt.PointingHandCursor
        onClicked: view.tap()
    }
    Rectangle {
        anchors.fill: parent
        visible: view.activeFocus && KeyboardUse.isActive
        color: "transparent"
        border.color: view.modelData.titleColor
        border.width: 2
    }
}
