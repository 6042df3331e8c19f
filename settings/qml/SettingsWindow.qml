import QtQuick
import QtQuick.Window
import Prismo.Settings

Window {
    id: window

    // "light", "dark" or "system".
    required property string style

    width: 390
    height: 780
    minimumWidth: 320
    minimumHeight: 420
    visible: true
    title: qsTr("Settings")
    color: Theme.background

    Shortcut {
        sequences: ["Ctrl+W", "Ctrl+Q"]
        onActivated: window.close()
    }
    SystemPalette {
        id: desktop
    }
    Binding {
        target: Theme
        property: "dark"
        value: {
            if (window.style !== "system")
                return window.style === "dark";
            if (DesktopStyle.scheme !== DesktopStyle.NoPreference)
                return DesktopStyle.scheme === DesktopStyle.Dark;
            return desktop.window.hslLightness < 0.5;
        }
    }
}
