// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls.Material 2.15

// The overlay of a tile: takes the click that selects it, and shows that it is selected or has the keyboard.
Item {
    id: root

    property bool selected: false
    property bool focused: false

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

        Item {
            x: 9
            y: 14
            width: 18
            height: 10
            rotation: -45

            Rectangle {
                width: 3
                height: 10
                color: "white"
            }

            Rectangle {
                y: 7
                width: 18
                height: 3
                color: "white"
            }
        }
    }

    // Two lines, of which one is seen on any ground.
    Rectangle {
        objectName: "focusFrame"
        anchors.fill: parent
        visible: root.focused
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

    MouseArea {
        anchors.fill: parent
        onClicked: {
            if (!mouse.wasHeld)
                root.toggled()
        }
    }
}
