// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15

// The canvas of one plan, on which the layers of tiles lie.
Rectangle {
    id: root

    property list<Item> views
    readonly property int selectedCount: {
        var sum = 0
        for (var i = 0; i < views.length; ++i)
            sum += views[i].selectedCount
        return sum
    }

    signal emptyClicked()

    function deselectAll() {
        for (var i = 0; i < views.length; ++i)
            views[i].deselectAll()
    }

    objectName: "GridCanvas"
    width: TilesJS.canvasSize
    height: TilesJS.canvasSize
    transformOrigin: Item.TopLeft
    color: "#edf0f3"
    border.color: "#d0d5d9"
    border.width: 2

    MouseArea {
        property real lastClickX: 0
        property real lastClickY: 0

        anchors.fill: parent
        z: -1
        onPressed: {
            lastClickX = mouse.x
            lastClickY = mouse.y
        }
        onClicked: {
            if (mouse.x - lastClickX <= TilesJS.baseGridSize && mouse.y - lastClickY <= TilesJS.baseGridSize)
                root.emptyClicked()
        }
    }
}
