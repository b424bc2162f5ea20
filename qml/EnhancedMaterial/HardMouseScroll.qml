// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15

// Makes a turn of the wheel scroll a flickable by steps that grow with the speed of turning. It lies below the
// content, so that what stands there and wants the wheel gets it first.
MouseArea {
    id: root

    property Flickable flickable: null
    property bool smooth: true // glide to the next step rather than jump
    property real scrollDistance: 100 // of one slow notch
    property var clock: Date.now // milliseconds

    // How many steps a notch counts for that comes so long after the last one, in fractions of the stop timer.
    function multiplier(fraction) {
        return fraction < 0.125 ? 6 : fraction < 0.25 ? 4 : fraction < 0.5 ? 1.5 : 1
    }

    // One notch: -1 is up, 1 is down.
    function scroll(direction) {
        var now = clock()
        var follows = stopTimer.running && direction === internal.lastDirection
        var elapsed = Math.max(0, now - internal.lastTime)
        var distance = scrollDistance * (follows ? multiplier(elapsed / stopTimer.interval) : 1)
        if (!smooth) {
            internal.moveTo(flickable.contentY + direction * distance)
        } else {
            var expected = follows ? Math.min(distance, distance * elapsed / stopTimer.interval) : 0
            var moved = (flickable.contentY - internal.lastY) * direction
            if (follows && moved < expected)
                internal.moveTo(flickable.contentY + direction * (expected - moved))
        }
        internal.lastDirection = direction
        internal.lastTime = now
        internal.lastY = flickable.contentY
        if (smooth && !internal.isAtEnd(direction))
            flickable.flick(0, -direction * 1000 / stopTimer.interval * scrollDistance)
        stopTimer.restart()
    }

    parent: flickable
    anchors.fill: parent
    z: -1
    acceptedButtons: Qt.NoButton
    onWheel: {
        wheel.accepted = flickable && flickable.interactive && wheel.angleDelta.y !== 0
            && flickable.contentHeight > flickable.height
        if (wheel.accepted)
            scroll(wheel.angleDelta.y < 0 ? 1 : -1)
    }
    Component.onDestruction: stopTimer.stop()

    Timer {
        id: stopTimer

        interval: 120
        onTriggered: {
            internal.lastDirection = 0
            if (root.flickable) {
                root.flickable.cancelFlick()
                root.flickable.returnToBounds()
            }
        }
    }

    QtObject {
        id: internal

        property int lastDirection: 0
        property real lastTime: 0
        property real lastY: 0

        // A list view's content need not begin at 0.
        function moveTo(y) {
            var first = root.flickable.originY
            var last = first + Math.max(0, root.flickable.contentHeight - root.flickable.height)
            root.flickable.contentY = Math.max(first, Math.min(y, last))
        }

        function isAtEnd(direction) {
            return direction < 0 ? root.flickable.atYBeginning : root.flickable.atYEnd
        }
    }
}
