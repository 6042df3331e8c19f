import QtQuick
import Prismo.Settings

// The title of a row, on more lines where it needs them.
Label {
    required property TableRow line

    anchors.top: parent.top
    anchors.bottom: parent.bottom
    text: line.title
    color: line.labelColor
    font.pixelSize: line.titleSize
    wrapMode: Text.Wrap
    maximumLineCount: 3
}
