import QtQuick
import Prismo.Settings

// What stands over the pages and waits for the person: all below lies in the shade and out of reach until its way
// out has been drawn. Only the topmost of them can be used.
Item {
    id: view

    required property Overlay object
    required property bool isLeaving
    required property Stage stage
    property int duration: Theme.slow
    // 0 out of sight, 1 there.
    property real presence: 0
    default property alias content: body.data
    signal dimTapped

    anchors.fill: parent

    Component.onCompleted: appear.start()
    onIsLeavingChanged: appear.restart()

    NumberAnimation {
        id: appear
        target: view
        property: "presence"
        to: view.isLeaving ? 0 : 1
        duration: view.duration
        easing.type: Easing.OutQuart
        onFinished: {
            if (view.isLeaving)
                view.stage.remove(view.object);
        }
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.dim
        opacity: view.presence

        MouseArea {
            anchors.fill: parent
            hoverEnabled: true
            onWheel: wheel => wheel.accepted = true
            onClicked: view.dimTapped()
        }
    }
    FocusScope {
        id: body

        anchors.fill: parent
        enabled: view.stage.top === view.object
        Component.onCompleted: forceActiveFocus()
        onEnabledChanged: {
            if (enabled)
                forceActiveFocus();
        }
        // A page that opens below asks for it, too.
        onFocusChanged: {
            if (!focus && view.stage.top === view.object)
                forceActiveFocus();
        }
    }
}
