import QtQuick
import Prismo.Settings

// The base of all rows: a tappable part of their group's card.
Item {
    id: row

    required property int index
    required property string title
    // In points; 0 means the default.
    required property real fontSize
    required property bool isEnabled
    required property bool isFirst
    required property bool isLast
    property bool isTappable: true
    // Read by a screen reader after the title.
    property string explanation
    property real separatorInset: Theme.gutter
    property real titleHeight: 0
    readonly property real titleSize: fontSize > 0 ? fontSize : Theme.bodySize
    readonly property color labelColor: isEnabled ? Theme.label : Theme.disabledLabel
    readonly property bool isPressed: area.pressed && isTappable && isEnabled
    default property alias content: body.data
    // Passes its line: in some versions of Qt, `index` in a handler inside a DelegateChoice is the choice's index.
    signal activated(line: int)

    // Assistive technology can call this even if an overlay covers the page.
    function activate() {
        if (row.isTappable && row.enabled)
            row.activated(row.index);
    }

    width: ListView.view ? ListView.view.width : implicitWidth
    implicitWidth: 360
    implicitHeight: Math.max(Theme.rowHeight, Math.ceil(titleHeight) + Theme.rowPadding)
    enabled: isEnabled

    Accessible.name: title
    // QML has no accessible state for this, so the description says it.
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

        // Only the first and last row show the card's rounded corners. In other rows the shape extends beyond the clip.
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
            // Neighboring rows would cover a ring that extends beyond this row.
            anchors.margins: 0
        }
    }
}
