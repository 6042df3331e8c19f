pragma ComponentBehavior: Bound

import QtQuick
import Qt.labs.qmlmodels
import Prismo.Settings

// The phone's screen: pages, status bar, banners, notices and overlays.
Item {
    id: view

    required property Phone phone

    function goBack() {
        const top = view.phone.overlays.top as Overlay;
        if (top)
            top.dismiss();
        else
            view.phone.back();
    }

    onWidthChanged: phone.setSize(width, height)
    onHeightChanged: phone.setSize(width, height)

    // Everything that an overlay blocks.
    FocusScope {
        id: ground

        anchors.fill: parent
        focus: true
        enabled: view.phone.overlays.depth === 0
        onEnabledChanged: {
            if (enabled)
                forceActiveFocus();
        }

        // The focused item is gone.
        Connections {
            target: ground.Window.window
            function onActiveFocusItemChanged() {
                if (ground.Window.activeFocusItem === ground)
                    stack.takeFocus();
            }
        }
        PageStack {
            id: stack

            anchors.fill: parent
            focus: true
            phone: view.phone
        }
        StatusBar {
            z: 2
            width: parent.width
            rootName: view.phone.rootName
            rootPath: view.phone.rootPath
            // The banner that covers it is slightly translucent.
            opacity: view.phone.coversStatusBar ? 0 : 1

            Behavior on opacity { NumberAnimation { duration: 300 } }
        }
        Item {
            z: view.phone.coversStatusBar ? 3 : 1
            width: parent.width
            height: Theme.statusBarHeight

            Repeater {
                model: view.phone.banners

                BannerView {}
            }
        }
        NoticeList {
            z: 4
            anchors.bottom: parent.bottom
            anchors.bottomMargin: 16
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(parent.width - 24, 520)
            height: Math.min(contentHeight, parent.height / 2)
            notices: view.phone.notices
        }
    }
    Repeater {
        model: view.phone.overlays

        delegate: DelegateChooser {
            role: "kind"

            DelegateChoice {
                roleValue: "Alert"
                AlertView {
                    stage: view.phone.overlays
                }
            }
            DelegateChoice {
                roleValue: "ColorPicker"
                ColorPickerView {
                    stage: view.phone.overlays
                    recentColors: view.phone.recentColors
                }
            }
            DelegateChoice {
                roleValue: "Compose"
                ComposeView {
                    stage: view.phone.overlays
                }
            }
        }
    }
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.BackButton
        onClicked: view.goBack()
    }
    Shortcut {
        sequences: ["Esc", "Alt+Left"]
        onActivated: view.goBack()
    }
}
