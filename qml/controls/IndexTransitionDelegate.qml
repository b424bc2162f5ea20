// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15

// The frame of a row in a list whose rows change places: what is in it slides from its old place to the new one. The
// row tells its index by the position.
Item {
    id: root

    property int position: -1
    property int duration: 200
    property int spacing: 0 // of the list
    default property alias content: frame.data
    readonly property bool moving: slide.running

    property int lastPosition: -1

    implicitHeight: 48
    implicitWidth: 320
    onPositionChanged: {
        var before = lastPosition
        lastPosition = position
        if (before < 0 || position < 0 || height <= 0)
            return
        // From where it is seen now, also in the middle of another slide.
        slide.stop()
        frame.y += (before - position) * (height + spacing)
        slide.start()
    }
    Component.onCompleted: lastPosition = position

    Item {
        id: frame

        objectName: "slidingFrame"
        width: root.width
        height: root.height
    }

    NumberAnimation {
        id: slide

        target: frame
        property: "y"
        to: 0
        duration: root.duration
        easing.type: Easing.OutQuad
    }
}
