import QtQuick
import Prismo.Settings

// A modal card with its own bar that slides over the page from below. In a wide window it is centered.
OverlayView {
    id: sheet

    property string title
    property string acceptText
    property bool canAccept: true
    property real sheetHeight: 480
    readonly property bool isWide: width > 560
    readonly property real margin: isWide ? (width - 420) / 2 : 0
    default property alias sheetContent: body.data
    signal accepted

    onDimTapped: object.dismiss()

    Rectangle {
        id: card

        readonly property real shownY: sheet.isWide ? Math.max(12, (sheet.height - height) / 2) : sheet.height - height + radius

        x: sheet.margin
        y: sheet.height + (shownY - sheet.height) * sheet.presence
        width: sheet.width - 2 * x
        height: Math.min(sheet.sheetHeight + (sheet.isWide ? 0 : radius), sheet.height - 12)
        radius: 14
        color: Theme.sheet
        antialiasing: true

        Accessible.role: Accessible.Dialog
        Accessible.name: sheet.title

        MouseArea {
            anchors.fill: parent
        }
        BarButton {
            id: cancelButton
            text: qsTr("Cancel")
            height: 52
            onClicked: sheet.object.dismiss()
        }
        Label {
            anchors.horizontalCenter: parent.horizontalCenter
            height: 52
            text: sheet.title
            font.weight: Font.DemiBold
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        Rectangle {
            y: 52
            width: parent.width
            height: 1
            color: Theme.separator
        }
        Item {
            id: body
            x: Theme.gutter
            y: 53
            width: card.width - 2 * x
            height: card.height - y - (sheet.isWide ? 0 : card.radius)
        }
        BarButton {
            anchors.right: parent.right
            text: sheet.acceptText
            isStrong: true
            height: 52
            enabled: sheet.canAccept
            onClicked: sheet.accepted()
        }
    }
}
