// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15

// The handle in the middle of an edge of a tile, which drags that edge. At the left and at the top it takes half of the
// way, since the handle itself moves with the edge.
MouseArea {
    id: root

    property int edge: Qt.LeftEdge
    property Item control: null // the overlay that shows the handle
    readonly property Item tile: control ? control.tile : null
    readonly property bool isHorizontal: edge === Qt.LeftEdge || edge === Qt.RightEdge
    property real pressX: 0
    property real pressY: 0
    property real lastX: 0 // of the pointer, in the scene

    function pull(dx, dy) {
        var least = control.minimumSize
        if (edge === Qt.LeftEdge && tile.width - dx / 2 >= least) {
            tile.width -= dx / 2
            tile.x += dx / 2
        } else if (edge === Qt.RightEdge && tile.width + dx >= least) {
            tile.width += dx
        } else if (edge === Qt.TopEdge && tile.height - dy / 2 >= least) {
            tile.height -= dy / 2
            tile.y += dy / 2
        } else if (edge === Qt.BottomEdge && tile.height + dy >= least) {
            tile.height += dy
        }
    }

    objectName: "anchor" + edge
    x: !parent ? 0 : (edge === Qt.LeftEdge ? 0 : edge === Qt.RightEdge ? parent.width : parent.width / 2) - width / 2
    y: !parent ? 0 : (edge === Qt.TopEdge ? 0 : edge === Qt.BottomEdge ? parent.height : parent.height / 2) - height / 2
    preventStealing: true
    cursorShape: isHorizontal ? Qt.SizeHorCursor : Qt.SizeVerCursor
    onPressed: {
        pressX = mouse.x
        pressY = mouse.y
        lastX = mapToItem(null, mouse.x, mouse.y).x
        control.hold()
    }
    // All four follow the pointer's way sideways, the upper and the lower one too.
    onMouseXChanged: {
        var x = mapToItem(null, mouse.x, mouse.y).x
        if (pressed && x !== lastX)
            pull(mouse.x - pressX, mouse.y - pressY)
        lastX = x
    }
    onReleased: control.release()
    onCanceled: control.cancel()

    Image {
        width: root.isHorizontal ? root.width / 2 : root.width
        height: root.isHorizontal ? root.height : root.height / 2
        mirror: root.isHorizontal
        source: root.isHorizontal ? "qrc:/images/triangle_15x30.png" : "qrc:/images/triangle_30x15.png"
    }

    Image {
        x: root.isHorizontal ? root.width / 2 : 0
        y: root.isHorizontal ? 0 : root.height / 2
        width: root.isHorizontal ? root.width / 2 : root.width
        height: root.isHorizontal ? root.height : root.height / 2
        rotation: root.isHorizontal ? 0 : 180
        source: root.isHorizontal ? "qrc:/images/triangle_15x30.png" : "qrc:/images/triangle_30x15.png"
    }
}
