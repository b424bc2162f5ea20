// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15

// Pans and zooms its content by wheel, pinch and drag; not while it is locked, which leaves the content alive. The
// content's size is the flickable's content size; who places an item here scales it by contentWidth.
Item {
    id: root

    default property alias content: pinchArea.data
    property alias flickable: flickable
    property bool locked: false
    property real minimumContentWidth: width
    property real minimumContentHeight: height
    property real maximumContentWidth: width * 4
    property real maximumContentHeight: height * 4

    // Both sides must end strictly below their maximum, so the exact maximum is never reached.
    function zoom(center, factor) {
        if (!(factor > 0) || !isFinite(factor))
            return
        var newWidth = Math.round(flickable.contentWidth * factor)
        var newHeight = Math.round(flickable.contentHeight * factor)
        newWidth = Math.max(minimumContentWidth, Math.min(maximumContentWidth, newWidth))
        newHeight = Math.max(minimumContentHeight, Math.min(maximumContentHeight, newHeight))
        if (newWidth >= maximumContentWidth || newHeight >= maximumContentHeight)
            return
        flickable.resizeContent(newWidth, newHeight, center)
        clampContent()
    }

    function pan(dx, dy) {
        flickable.contentX += dx
        flickable.contentY += dy
        clampContent()
    }

    // Scrolls no further than it takes to show that rectangle of the content, with its left top at any rate.
    function reveal(x, y, width, height) {
        flickable.contentX = Math.min(x, Math.max(flickable.contentX, x + width - flickable.width))
        flickable.contentY = Math.min(y, Math.max(flickable.contentY, y + height - flickable.height))
        clampContent()
    }

    function clampContent() {
        flickable.contentX = Math.max(0, Math.min(flickable.contentX, flickable.contentWidth - flickable.width))
        flickable.contentY = Math.max(0, Math.min(flickable.contentY, flickable.contentHeight - flickable.height))
    }

    // A larger window may ask for more content than there is.
    onMinimumContentWidthChanged: Qt.callLater(zoom, Qt.point(0, 0), 1)
    onMinimumContentHeightChanged: Qt.callLater(zoom, Qt.point(0, 0), 1)

    Flickable {
        id: flickable

        anchors.fill: parent
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        interactive: !root.locked && !(oneFinger.active && anotherFinger.active)

        // Inside, not around: it finds its fingers in the coordinates of what they touch, so that around the flickable
        // it would miss them as soon as the content is scrolled.
        PinchArea {
            id: pinchArea

            property point lastCenter // in the window's terms, since the content moves under the fingers

            function centerOf(pinch) {
                return mapToItem(root, pinch.center.x, pinch.center.y)
            }

            width: Math.max(flickable.contentWidth, flickable.width)
            height: Math.max(flickable.contentHeight, flickable.height)
            enabled: !root.locked
            onPinchStarted: lastCenter = centerOf(pinch)
            onPinchUpdated: {
                var center = centerOf(pinch)
                root.zoom(Qt.point(center.x + flickable.contentX, center.y + flickable.contentY),
                          pinch.scale / pinch.previousScale)
                root.pan(lastCenter.x - center.x, lastCenter.y - center.y)
                lastCenter = center
            }
        }

        MouseArea {
            anchors.fill: pinchArea
            z: 1
            acceptedButtons: Qt.NoButton
            enabled: !root.locked
            onWheel: root.zoom(Qt.point(wheel.x, wheel.y), 1 + 0.1 * Math.sign(wheel.angleDelta.y))
        }

        // Not in the area for the wheel: a handler lets its item accept every button.
        Item {
            anchors.fill: pinchArea
            z: 1
            enabled: !root.locked

            // Each takes one finger, and nothing away from what lies below. With both down the flickable must let go, or
            // it would pan with one of them before the pinch begins.
            PointHandler {
                id: oneFinger

                acceptedDevices: PointerDevice.TouchScreen
            }

            PointHandler {
                id: anotherFinger

                acceptedDevices: PointerDevice.TouchScreen
            }
        }
    }
}
