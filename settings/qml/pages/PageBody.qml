import QtQuick
import Prismo.Settings

// One page of the stack. It slides in over the previous page, and out to the right, animated or dragged.
FocusScope {
    id: body

    required property int index
    required property Page object
    required property bool isLeaving
    required property Phone phone
    required property real barHeight
    // The page above this one, or null.
    required property PageBody next
    // 0 on screen, 1 off to the right.
    property real offset: index > 0 ? 1 : 0
    readonly property real cover: next ? 1 - next.offset : 0
    readonly property bool isOnTop: !isLeaving && (!next || next.isLeaving)

    enabled: isOnTop
    visible: cover < 1

    Component.onCompleted: {
        if (index > 0)
            slide.start();
        forceActiveFocus();
    }
    onIsOnTopChanged: {
        if (isOnTop)
            forceActiveFocus();
    }
    onIsLeavingChanged: {
        if (!isLeaving)
            return;
        // A hidden page needs no animation.
        if (!visible)
            phone.pages.remove(object);
        else
            slide.restart();
    }

    NumberAnimation {
        id: slide

        target: body
        property: "offset"
        to: body.isLeaving ? 1 : 0
        duration: Theme.slow
        easing.type: Easing.OutQuart
        onFinished: {
            if (body.isLeaving)
                body.phone.pages.remove(body.object);
        }
    }

    Item {
        x: Math.round(body.offset * body.width - body.cover * body.width * 0.3)
        y: body.barHeight
        width: body.width
        height: body.height - y

        Rectangle {
            anchors.fill: parent
            color: Theme.background
        }
        TablePage {
            anchors.fill: parent
            page: body.object
        }
        // Darkens this page while another one covers it.
        Rectangle {
            anchors.fill: parent
            visible: body.cover > 0
            color: "#000000"
            opacity: body.cover * (Theme.dark ? 0.4 : 0.12)
        }
        Rectangle {
            x: -width
            width: 1
            height: parent.height
            visible: body.offset > 0
            color: Theme.separator
        }
        MouseArea {
            property real start: 0
            property real speed: 0
            property real last: 0

            width: 22
            height: parent.height
            enabled: body.index > 0
            preventStealing: true
            onPressed: mouse => {
                slide.stop();
                start = mapToItem(body, mouse.x, 0).x;
                last = start;
                speed = 0;
            }
            onPositionChanged: mouse => {
                const at = mapToItem(body, mouse.x, 0).x;
                speed = at - last;
                last = at;
                body.offset = Math.max(0, Math.min(1, (at - start) / body.width));
            }
            onReleased: {
                if (body.offset > 0.4 || speed > 4)
                    body.phone.back();
                else
                    slide.restart();
            }
            onCanceled: slide.restart()
        }
    }
}
