// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls.Material 2.15
import Fluid.Controls 1.0 as FL

// The overlay of a tile: takes the click that selects it, shows that it is selected or has the keyboard, and lets a
// selected tile that may be edited be dragged, and resized by a handle at each edge.
Item {
    id: root

    property Item tile: parent
    property Item canvas: null
    property bool selected: false
    property bool focused: false
    property bool editable: true
    property bool enableResizing: true
    property bool enableSnapping: true
    readonly property bool isMovable: selected && editable && enabled
    readonly property real buttonWidth: tile ? Math.min(tile.width / 2, 30) : 0
    readonly property real buttonHeight: tile ? Math.min(tile.height / 2, 30) : 0
    readonly property int minimumSize: 32
    readonly property real canvasWidth: canvas ? canvas.width : TilesJS.canvasSize
    readonly property real canvasHeight: canvas ? canvas.height : TilesJS.canvasSize
    property bool holdsAnimations: false
    property rect wanted // what was asked for last

    signal toggled()
    signal changed(var snappedObject)
    signal deselectControlsRequested()

    function click() {
        if (!selected)
            deselectControlsRequested()
        toggled()
    }

    // The tile follows the hand at once, without gliding.
    function hold() {
        if (!tile.enableAnimations)
            return
        holdsAnimations = true
        tile.enableAnimations = false
    }

    function letGo() {
        if (holdsAnimations)
            tile.enableAnimations = true
        holdsAnimations = false
    }

    function announce(place) {
        wanted = Qt.rect(place.x, place.y, place.width, place.height)
        changed(place)
    }

    // The hand is off the tile.
    function release() {
        letGo()
        if (editable && enabled)
            announce(enableSnapping ? TilesJS.snapToGrid(tile, TilesJS.baseGridSize)
                                    : { x: tile.x, y: tile.y, width: tile.width, height: tile.height })
    }

    // Something else took the hand: nothing is asked for.
    function cancel() {
        letGo()
        if (isMovable)
            tile.returnToPlace()
    }

    // One step of the grid by the keyboard: the tile moves, or its right and lower edges do.
    function step(dx, dy, resizes) {
        if (!isMovable || resizes && !enableResizing)
            return
        var grid = TilesJS.baseGridSize
        var from = tile.isPlaced ? wanted : tile.place // the tile itself may still be gliding
        var place = { x: from.x, y: from.y, width: from.width, height: from.height }
        if (resizes) {
            place.width = Math.max(minimumSize, from.width + dx * grid)
            place.height = Math.max(minimumSize, from.height + dy * grid)
        } else {
            place.x = Math.max(0, Math.min(from.x + dx * grid, canvasWidth - from.width))
            place.y = Math.max(0, Math.min(from.y + dy * grid, canvasHeight - from.height))
        }
        tile.x = place.x
        tile.y = place.y
        tile.width = place.width
        tile.height = place.height
        announce(place)
    }

    objectName: "tileControl"
    z: 1000
    onEnabledChanged: if (!enabled && selected) toggled()

    Rectangle {
        anchors.fill: parent
        visible: opacity > 0
        color: "black"
        opacity: root.selected ? 0.2 : 0

        Behavior on opacity {
            NumberAnimation { duration: 100; easing.type: Easing.InQuad }
        }
    }

    Rectangle {
        objectName: "selectionMark"
        x: Math.min(20, (root.width - width) / 2)
        y: root.height - height - Math.min(20, (root.height - height) / 2)
        width: 36
        height: 36
        radius: width / 2
        color: Material.accent
        scale: root.selected ? Math.min(1, root.width / width, root.height / height) : 0
        visible: scale > 0

        Behavior on scale {
            NumberAnimation { duration: 200; easing.type: Easing.OutQuad }
        }

        Loader {
            anchors.centerIn: parent
            active: parent.visible
            sourceComponent: FL.Icon {
                color: "white"
                name: "action/done"
            }
        }
    }

    // Two lines, of which one is seen on any ground.
    Loader {
        anchors.fill: parent
        active: root.focused
        sourceComponent: Rectangle {
            objectName: "focusFrame"
            color: "transparent"
            border.color: Material.accent
            border.width: 4

            Rectangle {
                anchors.fill: parent
                anchors.margins: 4
                color: "transparent"
                border.color: "white"
                border.width: 2
            }
        }
    }

    MouseArea {
        objectName: "tileMouseArea"
        anchors.fill: parent
        drag.target: root.isMovable ? root.tile : null
        drag.threshold: 1
        drag.smoothed: false // the first step counts too
        drag.axis: Drag.XAndYAxis
        drag.minimumX: 0
        drag.minimumY: 0
        drag.maximumX: Math.max(0, root.canvasWidth - root.width)
        drag.maximumY: Math.max(0, root.canvasHeight - root.height)
        onReleased: root.release()
        onCanceled: root.cancel()
        onPressAndHold: mouse.accepted = true // or it would not count as a hold
        onClicked: {
            if (!mouse.wasHeld)
                root.click()
        }
    }

    Loader {
        anchors.fill: parent
        active: root.isMovable && root.enableResizing
        sourceComponent: Item {
            Repeater {
                model: [Qt.LeftEdge, Qt.RightEdge, Qt.TopEdge, Qt.BottomEdge]

                ControlAnchor {
                    edge: modelData
                    control: root
                    width: root.buttonWidth
                    height: root.buttonHeight
                }
            }
        }
    }
}
