import QtQuick

// Scrolls if the content does not fit, and keeps the focused item in view.
Flickable {
    id: area

    readonly property Item focused: Window.activeFocusItem

    function holds(item: Item): bool {
        return item !== null && (item === contentItem || holds(item.parent));
    }

    contentWidth: width
    interactive: contentHeight > height
    boundsBehavior: Flickable.StopAtBounds
    clip: true
    onFocusedChanged: {
        if (!holds(focused) || focused === contentItem)
            return;
        const y = focused.mapToItem(contentItem, 0, 0).y;
        contentY = Math.min(y, Math.max(contentY, y + focused.height - height));
    }
}
