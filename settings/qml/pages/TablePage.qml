pragma ComponentBehavior: Bound

import QtQuick
import Qt.labs.qmlmodels
import Prismo.Settings

// The table of a page, with one delegate for each kind of row.
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
        // Also show what comes before the first row and after the last one.
        if (row === root.firstRow())
            list.positionViewAtBeginning();
        else if (row === root.lastRow())
            list.positionViewAtEnd();
    }

    function firstRow(): int {
        return root.table.interactiveRow(0, 1);
    }

    function lastRow(): int {
        return root.table.interactiveRow(list.count - 1, -1);
    }

    // The line at that height in the view, or -1.
    function lineAt(y: real): int {
        return list.indexAt(list.width / 2, list.contentY + y);
    }

    function isInView(row: int): bool {
        const last = root.lineAt(list.height - 1);
        return row >= 0 && row >= root.lineAt(0) && (last < 0 || row <= last);
    }

    // The user's position: the current row or, if that is out of view, the first line in view.
    function place(): int {
        return root.isInView(list.currentIndex) ? list.currentIndex : Math.max(0, root.lineAt(0));
    }

    // The keyboard continues from the tapped row.
    function makeCurrent(row: int) {
        list.currentIndex = row;
        list.forceActiveFocus();
    }

    function tap(row: int) {
        root.makeCurrent(row);
        root.table.tap(row);
    }

    function choose(row: int, choice: int) {
        root.makeCurrent(row);
        root.table.choose(row, choice);
    }

    function step(event: KeyEvent, row: int) {
        event.accepted = row >= 0;
        root.select(row);
    }

    function turnPage(event: KeyEvent, direction: int) {
        const from = root.isInView(list.currentIndex) ? list.currentItem.y : list.contentY;
        const way = direction * list.height * 0.9;
        const bottom = list.originY + list.contentHeight + list.bottomMargin - list.height;
        list.contentY = Math.max(list.originY, Math.min(list.contentY + way, bottom));
        list.forceLayout();
        // There is no line before the first one or after the last one.
        const at = root.lineAt(from + way - list.contentY);
        const onward = at < 0 ? -1 : root.table.interactiveRow(at, direction);
        root.step(event, onward >= 0 ? onward : direction > 0 ? root.lastRow() : root.firstRow());
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
        // Keeps all rows of a settings list alive, so that a screen reader can reach them.
        cacheBuffer: root.table.isSettingsList ? 10000 : 600
        bottomMargin: 28
        clip: false

        Accessible.role: Accessible.List
        Accessible.name: root.page.title

        onActiveFocusChanged: {
            if (!activeFocus)
                return;
            // Tab enters a settings list at its first row, Shift+Tab at its last.
            if (root.table.isSettingsList && KeyboardUse.key === Qt.Key_Tab)
                root.select(root.firstRow());
            else if (root.table.isSettingsList && KeyboardUse.key === Qt.Key_Backtab)
                root.select(root.lastRow());
            else if (currentIndex < 0)
                root.select(root.table.startRow());
        }

        Keys.onPressed: event => {
            const from = list.currentIndex;
            // Tab moves from row to row in a settings list, but leaves a table that may have thousands of rows.
            if (!root.table.isSettingsList && (event.key === Qt.Key_Tab || event.key === Qt.Key_Backtab))
                return;
            switch (event.key) {
            case Qt.Key_Down:
            case Qt.Key_Tab:
                return root.step(event, root.table.interactiveRow(from + 1, 1));
            case Qt.Key_Up:
            case Qt.Key_Backtab:
                return root.step(event, root.table.interactiveRow(from - 1, -1));
            case Qt.Key_Home:
                return root.step(event, root.firstRow());
            case Qt.Key_End:
                return root.step(event, root.lastRow());
            case Qt.Key_PageDown:
                return root.turnPage(event, 1);
            case Qt.Key_PageUp:
                return root.turnPage(event, -1);
            }
        }

        delegate: DelegateChooser {
            role: "kind"

            DelegateChoice {
                roleValue: RowKind.Header
                GroupHeader {}
            }
            DelegateChoice {
                roleValue: RowKind.Footer
                GroupFooter {}
            }
            DelegateChoice {
                roleValue: RowKind.Switch
                SwitchRow {
                    litColor: root.page.switchTint.valid ? root.page.switchTint : Theme.switchOn
                    onActivated: line => root.tap(line)
                }
            }
            DelegateChoice {
                roleValue: RowKind.Segment
                SegmentRow {
                    thumbColor: root.page.segmentTint.valid ? root.page.segmentTint : Theme.segmentThumb
                    onChosen: (line, choice) => root.choose(line, choice)
                }
            }
            DelegateChoice {
                roleValue: RowKind.Link
                LinkRow {
                    onActivated: line => root.tap(line)
                }
            }
            DelegateChoice {
                roleValue: RowKind.LinkList
                LinkRow {
                    onActivated: line => root.tap(line)
                }
            }
            DelegateChoice {
                roleValue: RowKind.Tall
                TallRow {
                    onActivated: line => root.tap(line)
                }
            }
            DelegateChoice {
                roleValue: RowKind.Choice
                ChoiceRow {
                    tint: root.tint
                    onActivated: line => root.tap(line)
                }
            }
            DelegateChoice {
                roleValue: RowKind.Color
                ColorRow {
                    onActivated: line => root.tap(line)
                }
            }
            DelegateChoice {
                roleValue: RowKind.Button
                ButtonRow {
                    tint: root.tint
                    onActivated: line => root.tap(line)
                }
            }
            DelegateChoice {
                roleValue: RowKind.Application
                ApplicationRow {
                    onActivated: line => root.tap(line)
                }
            }
        }
    }

    LineOrder {
        parentOfLines: list.contentItem
    }
    ScrollThumb {
        list: list
        anchors.right: parent.right
        anchors.rightMargin: index.visible ? 22 : 2
    }
    IndexStrip {
        id: index
        objectName: "index"
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        entries: root.table.letters
        row: visible ? root.place() : 0
        tint: root.tint
        visible: !root.table.isSettingsList && list.count > 30
        onChosen: row => {
            list.positionViewAtIndex(row, ListView.Beginning);
            list.currentIndex = row;
        }
    }
}
