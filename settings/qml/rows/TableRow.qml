import QtQuick
import Prismo.Settings

// What all rows of a page are: a part of their group's card that can be tapped, by whatever means.
Item {
    id: row

    required property int index
    required property string title
    // In points; 0 for the usual one.
    required property real fontSize
    required property bool isEnabled
    required property bool isFirst
    required property bool isLast
    property bool isTappable: true
    // What a screen reader says after the title.
    property string explanation
    property real separatorInset: Theme.gutter
    property real titleHeight: 0
    readonly property real titleSize: fontSize > 0 ? fontSize : Theme.bodySize
    readonly property color labelColor: isEnabled ? Theme.label : Theme.disabledLabel
    readonly property bool isPressed: area.pressed && isTappable && isEnabled
    default property alias content: body.data
    // Names its line: inside a DelegateChoice a handler's own `index` is the choice's in some versions of Qt.
    signal activated(line: int)

    // Also asked for by assistive technology, whatever lies over the page.
    function activate() {
        if (row.isTappable && row.enabled)
            row.activated(row.index);
    }

    width: ListView.view ? ListView.view.width : implicitWidth
    implicitWidth: 360
    implicitHeight: Math.max(Theme.rowHeight, Math.ceil(titleHeight) + Theme.rowPadding)
    enabled: isEnabled

    Accessible.name: title
    // There is no state for it here, so it is said.
    Accessible.description: isEnabled ? explanation : explanation === "" ? qsTr("Dimmed") : qsTr("%1, dimmed").arg(explanation)
    Accessible.focusable: isEnabled
    Accessible.onPressAction: row.activate()

    Keys.onSpacePressed: row.activate()
    Keys.onReturnPressed: row.activate()
    Keys.onEnterPressed: row.activate()

    Item {
        id: card
        x: Theme.cardInset(row.width)
        width: row.width - 2 * x
        height: row.height

        // The card's corners are those of its first and last row: the rounded shape reaches beyond the others.
        Item {
            anchors.fill: parent
            clip: !(row.isFirst && row.isLast)

            Rectangle {
                y: row.isFirst ? 0 : -radius
                width: parent.width
                height: parent.height + (row.isFirst ? 0 : radius) + (row.isLast ? 0 : radius)
                radius: Theme.cornerRadius
                color: row.isPressed ? Theme.pressed : Theme.card
                antialiasing: true

                Behavior on color {
                    enabled: !row.isPressed
                    ColorAnimation { duration: Theme.slow }
                }
            }
        }
        Rectangle {
            x: row.separatorInset
            y: parent.height - height
            width: parent.width - x
            height: 1
            visible: !row.isLast
            color: Theme.separator
        }
        MouseArea {
            id: area
            anchors.fill: parent
            enabled: row.isTappable
            onClicked: row.activate()
        }
        Item {
            id: body
            anchors.fill: parent
            anchors.leftMargin: Theme.gutter
            anchors.rightMargin: Theme.gutter
        }
        FocusRing {
            target: row
            parent: card
            anchors.fill: card
            // The rows beside would cover what reaches beyond.
            anchors.margins: 0
        }
    }
}
