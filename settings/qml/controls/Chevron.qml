pragma ComponentBehavior: Bound

import QtQuick
import Prismo.Settings

// A disclosure indicator or, rotated, the arrow of a back button.
Item {
    id: chevron

    property color color: Theme.chevron
    property real thickness: 2

    implicitWidth: 8
    implicitHeight: 14

    component Stroke: Rectangle {
        x: (chevron.width - width) / 2
        width: chevron.height / 2 * Math.SQRT2 + chevron.thickness / 2
        height: chevron.thickness
        radius: height / 2
        color: chevron.color
        antialiasing: true
    }

    Stroke {
        y: chevron.height / 4 - height / 2
        rotation: 45
    }
    Stroke {
        y: chevron.height * 3 / 4 - height / 2
        rotation: -45
    }
}
