pragma ComponentBehavior: Bound

import QtQuick
import Prismo.Settings

// The color picker.
Sheet {
    id: view

    readonly property ColorPicker picker: object as ColorPicker
    required property RecentColors recentColors

    title: qsTr("Color")
    acceptText: qsTr("Choose")
    sheetHeight: 53 + 18 + colors.implicitHeight + 16 + controls.implicitHeight + 18
    onAccepted: picker.accept()

    component Caption: Label {
        color: Theme.secondaryLabel
        font.pixelSize: Theme.footnoteSize
        font.weight: Font.Medium
    }

    // The field shrinks if there is little room.
    ColorField {
        id: colors

        anchors.top: parent.top
        anchors.topMargin: 18
        anchors.bottom: controls.top
        anchors.bottomMargin: 16
        width: parent.width
        focus: true
        picker: view.picker
    }
    Column {
        id: controls

        anchors.bottom: parent.bottom
        anchors.bottomMargin: 18
        width: parent.width
        spacing: 16

        ColorSlider {
            width: parent.width
            name: qsTr("Brightness")
            level: view.picker.brightness
            to: Qt.hsva(view.picker.hue, view.picker.saturation, 1, 1)
            onMoved: value => view.picker.setHSB(view.picker.hue, view.picker.saturation, value)
        }
        ColorSlider {
            width: parent.width
            visible: view.picker.showsAlpha
            name: qsTr("Opacity")
            isTransparent: true
            level: view.picker.alpha
            from: "transparent"
            to: Qt.rgba(view.picker.color.r, view.picker.color.g, view.picker.color.b, 1)
            onMoved: value => view.picker.setAlpha(value)
        }
        Item {
            width: parent.width
            height: 44

            // The old and new colors, side by side.
            Item {
                id: preview

                width: Math.min(132, caption.x - 12)
                height: 44

                Accessible.role: Accessible.StaticText
                Accessible.name: qsTr("Was %1, now %2").arg(view.picker.startHexText).arg(view.picker.hexText)

                Checkers {
                    anchors.fill: parent
                    visible: view.picker.showsAlpha
                }
                Repeater {
                    model: [view.picker.startColor, view.picker.color]

                    Item {
                        id: half

                        required property int index
                        required property color modelData

                        x: index * preview.width / 2
                        width: preview.width / 2
                        height: preview.height
                        clip: true

                        Rectangle {
                            x: half.index === 0 ? 0 : -radius
                            width: parent.width + radius
                            height: parent.height
                            radius: 10
                            color: half.modelData
                            antialiasing: true
                        }
                    }
                }
                RoundFrame {
                    corner: 10
                }
            }
            Caption {
                id: caption
                anchors.right: hex.left
                anchors.rightMargin: 10
                height: parent.height
                text: qsTr("Hex")
                Accessible.ignored: true
            }
            HexField {
                id: hex
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                picker: view.picker
                onEntered: view.accepted()
            }
        }
        Column {
            width: parent.width
            spacing: 8
            visible: view.recentColors.texts.length > 0

            Caption {
                text: qsTr("Recent")
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }
            Row {
                spacing: (controls.width - view.recentColors.most * 34) / (view.recentColors.most - 1)

                Repeater {
                    model: view.recentColors.texts

                    Swatch {
                        id: recent

                        required property string modelData

                        function use() {
                            if (recent.enabled)
                                view.picker.setHexText(recent.modelData);
                        }

                        width: 34
                        height: 34
                        color: modelData
                        activeFocusOnTab: true

                        Accessible.role: Accessible.Button
                        Accessible.name: qsTr("Recent color %1").arg(modelData)
                        Accessible.focusable: true
                        Accessible.onPressAction: recent.use()

                        Keys.onSpacePressed: recent.use()
                        Keys.onReturnPressed: recent.use()

                        MouseArea {
                            anchors.fill: parent
                            onClicked: recent.use()
                        }
                        FocusRing {
                            target: recent
                            anchors.margins: -4
                            radius: width / 2
                        }
                    }
                }
            }
        }
    }
}
