import QtQuick
import Prismo.Settings

Item {
    id: footer

    required property int index
    required property string title
    required property int alignment

    width: ListView.view ? ListView.view.width : implicitWidth
    implicitWidth: 360
    // A whole number, as for all rows: otherwise the next row would start between two pixels.
    implicitHeight: Math.ceil(label.implicitHeight) + 10

    Accessible.role: Accessible.Paragraph
    Accessible.name: title

    Label {
        id: label
        x: Theme.cardInset(parent.width) + Theme.gutter
        y: 7
        width: parent.width - 2 * x
        text: footer.title.trim()
        color: Theme.secondaryLabel
        font.pixelSize: Theme.footnoteSize
        lineHeight: 1.15
        wrapMode: Text.Wrap
        elide: Text.ElideNone
        horizontalAlignment: footer.alignment
        Accessible.ignored: true
    }
}
