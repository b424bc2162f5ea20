// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15

// Base of all tiles of a plan: a tile glides to its place when the server moves it. What is done to it by hand holds
// until the server answers, by another place or by a refusal, which brings the tile back.
Item {
    id: root

    property string uid
    property bool enableAnimations: true
    property rect place // where the server has it; a tile without a place stands where its user puts it
    property bool isPlaced: false // by hand, and not confirmed
    property Item control: null // the overlay by which it is moved and resized

    // The tile was moved or resized, and should stand there from now on.
    signal geometryRequested(real x, real y, real width, real height)

    function returnToPlace() {
        isPlaced = false
        x = place.x
        y = place.y
        width = place.width
        height = place.height
    }

    // Asks for that place if it is another than the server's.
    function requestGeometry(wanted) {
        if (wanted.x === place.x && wanted.y === place.y && wanted.width === place.width
                && wanted.height === place.height)
            return
        isPlaced = true
        geometryRequested(wanted.x, wanted.y, wanted.width, wanted.height)
    }

    function step(event) {
        var dx = event.key === Qt.Key_Left ? -1 : event.key === Qt.Key_Right ? 1 : 0
        var dy = event.key === Qt.Key_Up ? -1 : event.key === Qt.Key_Down ? 1 : 0
        event.accepted = control !== null && (dx !== 0 || dy !== 0) && (event.modifiers & Qt.ControlModifier) !== 0
        if (event.accepted)
            control.step(dx, dy, (event.modifiers & Qt.ShiftModifier) !== 0)
    }

    onPlaceChanged: returnToPlace()
    Keys.onPressed: step(event)

    Behavior on x {
        enabled: root.enableAnimations
        NumberAnimation { duration: 200 }
    }
    Behavior on y {
        enabled: root.enableAnimations
        NumberAnimation { duration: 200 }
    }
    Behavior on width {
        enabled: root.enableAnimations
        NumberAnimation { duration: 200 }
    }
    Behavior on height {
        enabled: root.enableAnimations
        NumberAnimation { duration: 200 }
    }
}
