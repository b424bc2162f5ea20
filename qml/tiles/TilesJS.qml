// SPDX-License-Identifier: GPL-3.0-or-later
pragma Singleton
import QtQuick 2.15

// The measures of the plan, in canvas units, and its grid.
QtObject {
    readonly property int baseGridSize: 16
    readonly property int baseTileSize: 96 // 6 steps of the grid
    readonly property int canvasSize: 4096
    readonly property real farthest: 1e9 // beyond it the arithmetic of the scene breaks

    // To the nearer line of the grid, from the middle to the lower one. What would come out below 0 is a step inside.
    function snapValue(value, gridSize) {
        var rest = value % gridSize
        var snapped = rest <= gridSize / 2 ? value - rest : value + gridSize - rest
        return value < 0 || snapped < 0 ? gridSize : snapped
    }

    function snapPosToGrid(x, y, gridSize) {
        return Qt.point(snapValue(x, gridSize), snapValue(y, gridSize))
    }

    // Moves the item onto the grid, at least two steps wide and high, and says where that is.
    function snapToGrid(item, gridSize) {
        var position = snapPosToGrid(item.x, item.y, gridSize)
        var place = {
            x: position.x,
            y: position.y,
            width: Math.max(2 * gridSize, snapValue(item.width, gridSize)),
            height: Math.max(2 * gridSize, snapValue(item.height, gridSize))
        }
        item.x = place.x
        item.y = place.y
        item.width = place.width
        item.height = place.height
        return place
    }

    function bounded(value, least) {
        var number = Number(value)
        return number === number ? Math.max(least, Math.min(farthest, number)) : 0
    }

    // The place that a server gives, whatever it gives.
    function placeOf(x, y, width, height) {
        return Qt.rect(bounded(x, -farthest), bounded(y, -farthest), bounded(width, 0), bounded(height, 0))
    }
}
