import QtQuick
import Prismo.Settings

// All text in the window. Always plain text, whatever it contains.
Text {
    color: Theme.label
    font.family: Theme.fontFamily
    font.pixelSize: Theme.bodySize
    textFormat: Text.PlainText
    verticalAlignment: Text.AlignVCenter
    elide: Text.ElideRight
}
