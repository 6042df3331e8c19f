pragma ComponentBehavior: Bound

import QtQuick
import Prismo.Settings

// Failures and their reasons, each shown until it is dismissed.
ScrollArea {
    id: list

    required property Notices notices

    contentHeight: column.height

    Column {
        id: column

        width: list.width
        spacing: 8

        Repeater {
            model: list.notices
            // Scroll to the newest.
            onItemAdded: {
                column.forceLayout();
                list.contentY = Math.max(0, list.contentHeight - list.height);
            }

            Rectangle {
                id: notice

                required property int index
                required property string headline
                required property string text

                width: list.width
                height: words.implicitHeight + 24
                radius: 12
                color: Theme.dark ? "#2c2c2e" : "#ffffff"
                border.color: Theme.dark ? "#48484a" : "#cfcfd4"
                antialiasing: true

                Accessible.role: Accessible.AlertMessage
                Accessible.name: headline
                Accessible.description: text

                Rectangle {
                    x: 14
                    y: 14
                    width: 20
                    height: 20
                    radius: 10
                    color: Theme.warning
                    antialiasing: true

                    Label {
                        anchors.centerIn: parent
                        text: "!"
                        color: "#ffffff"
                        font.pixelSize: 14
                        font.bold: true
                        Accessible.ignored: true
                    }
                }
                Column {
                    id: words
                    x: 46
                    y: 12
                    width: parent.width - x - 48
                    spacing: 3

                    Label {
                        width: parent.width
                        text: notice.headline
                        font.pixelSize: 15
                        font.weight: Font.DemiBold
                        Accessible.ignored: true
                    }
                    Label {
                        width: parent.width
                        text: notice.text
                        color: Theme.secondaryLabel
                        font.pixelSize: Theme.footnoteSize
                        wrapMode: Text.Wrap
                        elide: Text.ElideNone
                        Accessible.ignored: true
                    }
                }
                BarButton {
                    id: close
                    anchors.right: parent.right
                    width: 44
                    height: parent.height
                    accessibleName: qsTr("Dismiss")
                    onClicked: list.notices.dismiss(notice.index)

                    Repeater {
                        model: [45, -45]

                        Rectangle {
                            required property real modelData
                            anchors.centerIn: parent
                            width: 14
                            height: 2
                            radius: 1
                            rotation: modelData
                            color: Theme.secondaryLabel
                            antialiasing: true
                        }
                    }
                }
            }
        }
    }
}
