pragma ComponentBehavior: Bound

import QtQuick
import Qt.labs.qmlmodels
import Prismo.Settings

// The table of a page: one delegate for each kind of row.
Item {
    id: root

    required property Page page
    readonly property Table table: page.table
    readonly property color tint: page.tint.valid ? page.tint : Theme.accent

    function select(row: int) {
        if (row < 0)
            return;
        list.currentIndex = row;
        list.positionViewAtIndex(row, ListView.Contain);
        // A group's header is to be seen with its first row.
        if (row <= 1)
            list.positionViewAtBeginning();
    }

    function step(event: KeyEvent, row: int) {
        event.accepted = row >= 0;
        root.select(row);
    }

    function turnPage(event: KeyEvent, direction: int) {
        const at = list.indexAt(list.width / 2, list.contentY + (direction > 0 ? list.height * 1.9 : -list.height * 0.9));
        const end = direction > 0 ? list.count - 1 : 0;
        root.step(event, root.table.interactiveRow(at < 0 ? end : at, at < 0 ? -direction : direction));
    }

    ListView {
        id: list

        objectName: "table"
        anchors.fill: parent
        focus: true
        activeFocusOnTab: true
        model: root.table
        currentIndex: -1
        keyNavigationEnabled: false
        highlightFollowsCurrentItem: false
        boundsBehavior: Flickable.DragAndOvershootBounds
        flickDeceleration: 2500
        maximumFlickVelocity: 6000
        // All rows of a settings list are there at any time, also for a screen reader.
        cacheBuffer: root.table.isLong ? 600 : 10000
        bottomMargin: 28
        clip: false

        Accessible.role: Accessible.List
        Accessible.name: root.page.title

        onActiveFocusChanged: {
            if (activeFocus && currentIndex < 0)
                currentIndex = root.table.interactiveRow(0, 1);
        }

        Keys.onPressed: event => {
            const from = list.currentIndex;
            switch (event.key) {
            case Qt.Key_Down:
            case Qt.Key_Tab:
                return root.step(event, root.table.interactiveRow(from + 1, 1));
            case Qt.Key_Up:
            case Qt.Key_Backtab:
                return root.step(event, root.table.interactiveRow(from - 1, -1));
            case Qt.Key_Home:
                return root.step(event, root.table.interactiveRow(0, 1));
            case Qt.Key_End:
                return root.step(event, root.table.interactiveRow(list.count - 1, -1));
            case Qt.Key_PageDown:
                return root.turnPage(event, 1);
            case Qt.Key_PageUp:
                return root.turnPage(event, -1);
            }
        }

        delegate: DelegateChooser {
            role: "kind"

            DelegateChoice {
                roleValue: "header"
                GroupHeader {}
            }
            DelegateChoice {
                roleValue: "footer"
                GroupFooter {}
            }
            DelegateChoice {
                roleValue: "switch"
                SwitchRow {
                    litColor: root.page.switchTint.valid ? root.page.switchTint : Theme.switchOn
                    onActivated: root.table.tap(index)
                }
            }
            DelegateChoice {
                roleValue: "segment"
                SegmentRow {
                    thumbColor: root.page.segmentTint.valid ? root.page.segmentTint : Theme.segmentThumb
                    onChosen: choice => root.table.choose(index, choice)
                }
            }
            DelegateChoice {
                roleValue: "link"
                LinkRow {
                    onActivated: root.table.tap(index)
                }
            }
            DelegateChoice {
                roleValue: "linkList"
                LinkRow {
                    onActivated: root.table.tap(index)
                }
            }
            DelegateChoice {
                roleValue: "tall"
                TallRow {
                    onActivated: root.table.tap(index)
                }
            }
            DelegateChoice {
                roleValue: "choice"
                ChoiceRow {
                    tint: root.tint
                    onActivated: root.table.tap(index)
                }
            }
            DelegateChoice {
                roleValue: "color"
                ColorRow {
                    onActivated: root.table.tap(index)
                }
            }
            DelegateChoice {
                roleValue: "button"
                ButtonRow {
                    tint: root.tint
                    onActivated: root.table.tap(index)
                }
            }
            DelegateChoice {
                roleValue: "application"
                ApplicationRow {
                    onActivated: root.table.tap(index)
                }
            }
        }
    }

    ScrollThumb {
        list: list
        anchors.right: parent.right
        anchors.rightMargin: index.visible ? 22 : 2
    }
    IndexStrip {
        id: index
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        entries: root.table.letters
        tint: root.tint
        visible: root.table.isLong && list.count > 30
        onChosen: row => {
            list.positionViewAtIndex(row, ListView.Beginning);
            list.currentIndex = row;
        }
    }
}
