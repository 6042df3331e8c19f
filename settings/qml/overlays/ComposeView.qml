import QtQuick
import Prismo.Settings

// The sheet for writing a post.
Sheet {
    id: view

    readonly property Compose compose: object as Compose

    title: compose.service
    acceptText: qsTr("Post")
    canAccept: compose.text !== ""
    sheetHeight: 300
    onAccepted: compose.send()

    Flickable {
        anchors.fill: parent
        anchors.topMargin: 12
        anchors.bottomMargin: 12
        contentHeight: editor.height
        clip: true

        TextEdit {
            id: editor

            width: parent.width
            height: Math.max(implicitHeight, 120)
            focus: true
            text: view.compose.text
            textFormat: TextEdit.PlainText
            wrapMode: TextEdit.Wrap
            color: Theme.label
            font.family: Theme.fontFamily
            font.pixelSize: 17
            selectByMouse: true
            selectionColor: Theme.accent
            selectedTextColor: Theme.accentLabel
            activeFocusOnTab: true
            Component.onCompleted: cursorPosition = length
            onTextChanged: view.compose.text = text
            // Tab moves on to the buttons.
            KeyNavigation.priority: KeyNavigation.BeforeItem

            Keys.onTabPressed: nextItemInFocusChain().forceActiveFocus(Qt.TabFocusReason)
            Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)

            Accessible.role: Accessible.EditableText
            Accessible.name: qsTr("Post")
            Accessible.multiLine: true
            Accessible.editable: true
            Accessible.focusable: true
        }
    }
}
