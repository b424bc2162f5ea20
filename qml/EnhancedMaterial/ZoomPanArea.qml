// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15

// Pans and zooms its content by wheel, pinch and drag. The content's size is the flickable's content size; who places
// an item here scales it by contentWidth.
PinchArea {
    id: root

    default property alias content: flickable.flickableData
    property alias flickable: flickable
    property real minimumContentWidth: width
    property real minimumContentHeight: height
    property real maximumContentWidth: width * 4
    property real maximumContentHeight: height * 4

    // Both sides must end strictly below their maximum, so the exact maximum is never reached.
    function zoom(center, factor) {
        var newWidth = Math.round(flickable.contentWidth * factor)
        var newHeight = Math.round(flickable.contentHeight * factor)
        newWidth = Math.max(minimumContentWidth, Math.min(maximumContentWidth, newWidth))
        newHeight = Math.max(minimumContentHeight, Math.min(maximumContentHeight, newHeight))
        if (newWidth >= maximumContentWidth || newHeight >= maximumContentHeight)
            return
        flickable.resizeContent(newWidth, newHeight, center)
        clampContent()
    }

    function clampContent() {
        flickable.contentX = Math.max(0, Math.min(flickable.contentX, flickable.contentWidth - flickable.width))
        flickable.contentY = Math.max(0, Math.min(flickable.contentY, flickable.contentHeight - flickable.height))
    }

    onPinchUpdated: {
        var center = Qt.point(pinch.center.x + flickable.contentX, pinch.center.y + flickable.contentY)
        zoom(center, pinch.scale / pinch.previousScale)
        flickable.contentX += pinch.previousCenter.x - pinch.center.x
        flickable.contentY += pinch.previousCenter.y - pinch.center.y
        clampContent()
    }

    Flickable {
        id: flickable

        anchors.fill: parent
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        interactive: root.enabled

        MouseArea {
            anchors.fill: parent
            z: 1
            acceptedButtons: Qt.NoButton
            onWheel: root.zoom(Qt.point(wheel.x, wheel.y), wheel.angleDelta.y < 0 ? 1 - 0.1 : 1 + 0.1)
        }
    }
}
