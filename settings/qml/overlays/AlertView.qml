pragma ComponentBehavior: Bound

import QtQuick
import Prismo.Settings

// An alert, above everything else.
OverlayView {
    id: view

    readonly property Alert alert: object as Alert
    readonly property bool isStacked: alert.buttons.length > 2

    duration: 200

    Rectangle {
        id: card

        anchors.centerIn: parent
        width: Math.min(280, view.width - 32)
        height: words.height + buttons.height
        radius: 14
        color: Theme.dark ? "#2c2c2e" : "#fbfbfd"
        opacity: view.presence
        scale: view.isLeaving ? 1 : 1.12 - 0.12 * view.presence
        antialiasing: true

        Accessible.role: Accessible.Dialog
        Accessible.name: view.alert.title !== "" ? view.alert.title : view.alert.message
        Accessible.description: view.alert.title !== "" ? view.alert.message : ""

        Column {
            id: words

            x: 18
            width: card.width - 2 * x
            topPadding: 20
            bottomPadding: 20
            spacing: 5

            Label {
                width: parent.width
                visible: text !== ""
                horizontalAlignment: Text.AlignHCenter
                text: view.alert.title
                font.pixelSize: 17
                font.weight: Font.DemiBold
                wrapMode: Text.Wrap
                elide: Text.ElideNone
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }
            Label {
                width: parent.width
                visible: text !== ""
                horizontalAlignment: Text.AlignHCenter
                text: view.alert.message
                font.pixelSize: 14
                wrapMode: Text.Wrap
                elide: Text.ElideNone
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
        }
        ScrollArea {
            id: buttons

            anchors.top: words.bottom
            width: card.width
            height: Math.min(contentHeight, view.height - words.height - 48)
            contentHeight: view.isStacked ? view.alert.buttons.length * Theme.barHeight : Theme.barHeight

            Repeater {
                model: view.alert.buttons

                BarButton {
                    id: button

                    required property int index
                    required property string modelData
                    // The cancel button comes first, but is drawn below the others.
                    readonly property int place: view.isStacked ? (index === 0 ? view.alert.buttons.length - 1 : index - 1) : index

                    x: view.isStacked ? 0 : index * width
                    y: view.isStacked ? place * Theme.barHeight : 0
                    width: view.isStacked ? card.width : card.width / view.alert.buttons.length
                    text: modelData
                    isStrong: index === 0
                    focus: index === 0
                    onClicked: view.alert.click(index)

                    Rectangle {
                        width: parent.width
                        height: 1
                        color: Theme.separator
                    }
                    Rectangle {
                        width: 1
                        height: parent.height
                        visible: !view.isStacked && button.index > 0
                        color: Theme.separator
                    }
                }
            }
        }
    }
}
