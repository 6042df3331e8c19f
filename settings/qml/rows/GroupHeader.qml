import QtQuick
import Prismo.Settings

Item {
    id: header

    required property int index
    required property string title

    width: ListView.view ? ListView.view.width : implicitWidth
    implicitWidth: 360
    implicitHeight: title === "" ? (index === 0 ? 20 : 28) : (index === 0 ? 42 : 50)

    Accessible.role: Accessible.Heading
    Accessible.name: title
    Accessible.ignored: title === ""

    Label {
        x: Theme.cardInset(parent.width) + Theme.gutter
        width: parent.width - 2 * x
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 7
        text: header.title
        color: Theme.secondaryLabel
        font.pixelSize: Theme.footnoteSize
        font.weight: Font.Medium
        Accessible.ignored: true
    }
}
