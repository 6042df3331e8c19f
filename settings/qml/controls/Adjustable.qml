import QtQuick

// An item with a value from 0 to 1. Assistive technology reads the properties with these names, and sets `value`.
Item {
    id: adjustable

    // The current value.
    required property real level
    property real value: level
    readonly property real minimumValue: 0
    readonly property real maximumValue: 1
    readonly property real stepSize: 0.05
    signal moved(real value)

    function move(to: real) {
        if (adjustable.enabled)
            adjustable.moved(Math.max(0, Math.min(1, to)));
    }

    activeFocusOnTab: true
    onValueChanged: {
        if (value === level)
            return;
        move(value);
        value = Qt.binding(() => adjustable.level);
    }

    Accessible.role: Accessible.Slider
    Accessible.focusable: true
    Accessible.onIncreaseAction: adjustable.move(adjustable.level + adjustable.stepSize)
    Accessible.onDecreaseAction: adjustable.move(adjustable.level - adjustable.stepSize)
}
