import QtQuick
import Prismo.Settings

// A color as text. Text that is not a color is marked and changes nothing.
Rectangle {
    id: field

    required property ColorPicker picker
    property bool isValid: true
    // Return was pressed on a valid color.
    signal entered

    implicitWidth: 128
    implicitHeight: 36
    radius: 9
    color: Theme.field
    border.color: isValid ? (input.activeFocus ? Theme.accent : Theme.separator) : "#ff3b30"
    border.width: input.activeFocus || !isValid ? 2 : 1
    antialiasing: true

    TextInput {
        id: input

        anchors.fill: parent
        anchors.leftMargin: 12
        anchors.rightMargin: 8
        verticalAlignment: TextInput.AlignVCenter
        color: Theme.label
        font.family: Theme.fontFamily
        font.pixelSize: 16
        maximumLength: 16
        inputMethodHints: Qt.ImhNoPredictiveText
        selectByMouse: true
        selectionColor: Theme.accent
        selectedTextColor: Theme.accentLabel
        activeFocusOnTab: true
        clip: true

        // Not bound: the text stays as the user types it.
        Component.onCompleted: text = field.picker.hexText
        onTextEdited: field.isValid = field.picker.setHexText(text)
        onAccepted: {
            if (field.isValid)
                field.entered();
        }
        onActiveFocusChanged: {
            if (activeFocus) {
                selectAll();
            } else {
                field.isValid = true;
                text = field.picker.hexText;
            }
        }

        Accessible.role: Accessible.EditableText
        Accessible.name: qsTr("Hex Color")
        Accessible.description: field.isValid ? "" : qsTr("Not a color")
        Accessible.editable: true
        Accessible.focusable: true

        Connections {
            target: field.picker
            function onChanged() {
                if (!input.activeFocus)
                    input.text = field.picker.hexText;
            }
        }
    }
}
