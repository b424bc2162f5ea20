// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls.Material 2.15

// The overlay of a tile: takes the click that selects it, and shows that it is selected.
Item {
    id: root

    property bool selected: false

    signal toggled()

    objectName: "tileControl"

    Rectangle {
        anchors.fill: parent
        color: "black"
        opacity: root.selected ? 0.2 : 0

        Behavior on opacity {
            NumberAnimation { duration: 100; easing.type: Easing.InQuad }
        }
    }

    Rectangle {
        x: Math.min(20, (root.width - width) / 2)
        y: root.height - height - Math.min(20, (root.height - height) / 2)
        width: 36
        height: 36
        radius: width / 2
        color: Material.accent
        scale: root.selected ? 1 : 0
        visible: scale > 0

        Behavior on scale {
            NumberAnimation { duration: 200; easing.type: Easing.OutQuad }
        }

        Canvas {
            anchors.centerIn: parent
            width: 20
            height: 20
            antialiasing: true

            onPaint: {
                var context = getContext("2d")
                context.reset()
                context.strokeStyle = "white"
                context.lineWidth = 2.5
                context.beginPath()
                context.moveTo(3, 10.5)
                context.lineTo(8, 15.5)
                context.lineTo(17, 5)
                context.stroke()
            }
        }
    }

    MouseArea {
        anchors.fill: parent
        onClicked: {
            if (!mouse.wasHeld)
                root.toggled()
        }
    }
}
