import QtQuick
import Prismo.Settings

// The title of a row, wrapped if needed.
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
