import QtQuick
import Prismo.Settings

// One page's part of the navigation bar: its title, back button and right button. It fades and shifts while the
// page slides.
Item {
    id: content

    required property Page page
    required property Phone phone
    // The previous page's title; "" for the first page.
    required property string backTitle
    // -1 covered, 0 on screen, 1 off to the right.
    required property real offset
    readonly property color tint: phone.tint.valid ? phone.tint : Theme.accent

    visible: Math.abs(offset) < 1
    opacity: 1 - Math.min(1, Math.abs(offset) * 1.4)
    enabled: offset === 0

    BarButton {
        id: back

        objectName: "back"
        x: content.offset * content.width * 0.25
        width: Math.min(implicitWidth, content.width * 0.34)
        implicitWidth: 26 + backLabel.implicitWidth
        visible: content.backTitle !== ""
        accessibleName: qsTr("Back")
        Accessible.description: content.backTitle
        onClicked: content.phone.back()

        Chevron {
            x: 10
            y: (Theme.barHeight - height) / 2
            implicitWidth: 11
            implicitHeight: 20
            thickness: 2.4
            rotation: 180
            color: content.tint
        }
        Label {
            id: backLabel
            x: 26
            width: Math.min(implicitWidth, back.width - x)
            height: Theme.barHeight
            text: content.backTitle
            color: content.tint
            Accessible.ignored: true
        }
    }
    Label {
        readonly property real side: Math.max(back.visible ? back.width : 0, right.visible ? right.width : 0) + 8

        x: side + content.offset * content.width * 0.4
        width: content.width - 2 * side
        height: Theme.barHeight
        horizontalAlignment: Text.AlignHCenter
        text: content.page.title
        color: content.phone.titleColor.valid ? content.phone.titleColor : Theme.label
        font.weight: Font.DemiBold

        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    BarButton {
        id: right

        objectName: "rightButton"
        anchors.right: parent.right
        visible: content.page.hasRightButton
        implicitWidth: Math.max(52, label.visible ? label.implicitWidth + 2 * Theme.gutter : 0)
        accessibleName: content.page.rightLabel
        onClicked: content.page.tapRightButton()

        Label {
            id: label

            anchors.centerIn: parent
            visible: content.page.rightImage === ""
            text: content.page.rightLabel
            color: content.tint
            Accessible.ignored: true
        }
        Image {
            anchors.centerIn: parent
            source: content.page.rightImage === "" ? "" : content.page.rightImage + "/" + content.tint.toString().slice(-6)
            sourceSize.width: 44
            sourceSize.height: 44
            width: 22
            height: 22
            smooth: true
        }
    }
}
