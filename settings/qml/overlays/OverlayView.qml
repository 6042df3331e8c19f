import QtQuick
import Prismo.Settings

// A modal overlay. It dims and blocks everything below until its exit animation ends. Only the topmost overlay can
// be used.
Item {
    id: view

    required property Overlay object
    required property bool isLeaving
    required property Stage stage
    property int duration: Theme.slow
    // From 0, hidden, to 1, shown.
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
        // A page that opens below asks for the focus, too.
        onFocusChanged: {
            if (!focus && view.stage.top === view.object)
                forceActiveFocus();
        }
    }
}
