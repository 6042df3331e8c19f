import QtQuick
import Prismo.Settings

// Every text of the window, which is plain whatever it holds.
Text {
    color: Theme.label
    font.family: Theme.fontFamily
    font.pixelSize: Theme.bodySize
    textFormat: Text.PlainText
    verticalAlignment: Text.AlignVCenter
    elide: Text.ElideRight
}
