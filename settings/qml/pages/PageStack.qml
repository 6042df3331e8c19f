pragma ComponentBehavior: Bound

import QtQuick
import Prismo.Settings

// The stacked pages and their shared navigation bar.
FocusScope {
    id: stack

    required property Phone phone

    function takeFocus() {
        const top = bodies.count > 0 ? bodies.itemAt(bodies.count - 1) as PageBody : null;
        if (top)
            top.forceActiveFocus();
    }

    Repeater {
        id: bodies

        model: stack.phone.pages

        PageBody {
            phone: stack.phone
            next: index + 1 < bodies.count ? bodies.itemAt(index + 1) as PageBody : null
            anchors.fill: parent
            barHeight: bar.height
        }
    }

    Rectangle {
        id: bar

        width: parent.width
        height: Theme.statusBarHeight + Theme.barHeight
        color: stack.phone.barTint.valid ? stack.phone.barTint : Theme.bar

        Accessible.role: Accessible.ToolBar
        Accessible.name: qsTr("Navigation Bar")

        Repeater {
            model: stack.phone.pages

            BarContent {
                id: barContent

                required property int index
                required property Page object
                readonly property PageBody body: index < bodies.count ? bodies.itemAt(index) as PageBody : null
                readonly property PageBody below: index > 0 && index <= bodies.count ? bodies.itemAt(index - 1) as PageBody : null

                y: Theme.statusBarHeight
                width: bar.width
                height: Theme.barHeight
                page: object
                phone: stack.phone
                backTitle: below ? below.object.title : ""
                offset: body ? body.offset - body.cover : 0
            }
        }
        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: 1
            color: Theme.separator
        }
    }
}
