// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import colors 1.0

// One zone on the plan, in the colour of its power; a zone in manual mode has a frame and says so. A low tile puts all
// in one row, a narrow one all in one column; one that is both goes by its longer side.
Tile {
    id: root

    property string name
    property int powerPercent: 0
    property bool manual: false
    property int erroredDevicesCount: 0
    property alias selected: overlay.selected
    property alias editable: overlay.editable
    property alias canvas: overlay.canvas
    readonly property bool isLow: face.height < badge.height + powerLabel.height + 4 + 48
    readonly property bool isNarrow: face.width < badge.fullWidth + 16 + powerLabel.width + 16 + 8
    readonly property color textColor: {
        if (powerPercent < 1)
            return manual ? "black" : "#313c43"
        if (powerPercent < 40)
            return "white"
        if (powerPercent < 60)
            return manual ? "white" : "#313c43"
        return manual ? "black" : "#313c43"
    }

    signal toggled()
    signal entered()

    control: overlay
    activeFocusOnTab: true
    Accessible.role: Accessible.CheckBox
    Accessible.name: name.trim() === "" ? qsTr("Зона без названия") : name
    Accessible.description: manual ? qsTr("%1%, ручной режим").arg(powerPercent) : qsTr("%1%").arg(powerPercent)
    Accessible.focusable: true
    Accessible.focused: activeFocus
    Accessible.checkable: true
    Accessible.checked: selected
    Accessible.onToggleAction: toggled()
    Accessible.onPressAction: toggled()
    Keys.onSpacePressed: toggled()
    Keys.onReturnPressed: entered()
    Keys.onEnterPressed: entered()

    Rectangle {
        anchors.fill: parent
        color: Material.color(Material.Grey, Material.Shade900)
    }

    Rectangle {
        id: face

        objectName: "zoneFace"
        anchors.fill: parent
        anchors.margins: root.manual ? 8 : 0
        color: Colors.brightnessToColor(root.powerPercent)

        Behavior on anchors.margins {
            enabled: root.enableAnimations
            NumberAnimation { duration: 100 }
        }
        Behavior on color {
            enabled: root.enableAnimations
            ColorAnimation { duration: 100 }
        }

        Image {
            objectName: "zoneCheckers"
            anchors.fill: parent
            visible: root.manual
            opacity: 0.2
            fillMode: Image.Tile
            source: visible ? "qrc:/images/checkers_16px.png" : ""
        }

        QC2.Label {
            id: powerLabel

            objectName: "zonePower"
            x: face.width - width - 6
            y: 6
            scale: Math.min(1, face.width / width, face.height / height)
            transformOrigin: Item.TopRight
            color: root.textColor
            font.pixelSize: 14
            font.bold: true
            text: qsTr("%1%").arg(root.powerPercent)
        }

        Rectangle {
            id: badge

            readonly property real fullWidth: 18 + countLabel.width + 16

            objectName: "zoneBadge"
            x: 4
            y: 4
            width: countLabel.visible ? fullWidth : height
            height: 28
            radius: height / 2
            scale: Math.min(1, face.height / height)
            visible: root.erroredDevicesCount > 0
            color: Colors.red

            Rectangle {
                x: 5
                anchors.verticalCenter: parent.verticalCenter
                width: 18
                height: 18
                radius: 9
                color: "white"

                QC2.Label {
                    anchors.centerIn: parent
                    color: badge.color
                    font.pixelSize: 14
                    font.bold: true
                    text: "!"
                }
            }

            QC2.Label {
                id: countLabel

                objectName: "zoneErrors"
                x: 28
                anchors.verticalCenter: parent.verticalCenter
                color: "white"
                font.pixelSize: 14
                font.bold: true
                text: root.erroredDevicesCount
            }
        }

        QC2.Label {
            id: nameLabel

            objectName: "zoneName"
            x: 6
            y: 34
            width: Math.max(0, face.width - 2 * x)
            height: Math.max(0, face.height - 2 * y)
            visible: height >= 8 && width >= 12
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            color: root.textColor
            font.family: "Manrope"
            font.bold: true
            font.pixelSize: 14
            minimumPixelSize: 6
            fontSizeMode: Text.Fit
            wrapMode: Text.Wrap
            elide: Text.ElideRight
            textFormat: Text.PlainText
            // A fitted text is laid out again and again: more than fits into any tile is not laid out at all.
            text: root.name.length > 400 ? root.name.substring(0, 400) : root.name
        }

        QC2.Label {
            id: modeLabel

            objectName: "zoneMode"
            x: nameLabel.x
            y: face.height - height - 6
            width: nameLabel.width
            visible: root.manual
            opacity: contentWidth <= width ? 1 : 0 // where even the smallest letters don't fit, the frame tells it
            horizontalAlignment: Text.AlignHCenter
            color: root.textColor
            font.pixelSize: 12
            minimumPixelSize: 6
            fontSizeMode: Text.HorizontalFit
            text: qsTr("(Ручной режим)")
        }
    }

    TileControl {
        id: overlay

        anchors.fill: parent
        focused: root.activeFocus
        editable: false
        onToggled: root.toggled()
        onChanged: root.requestGeometry(snappedObject)
    }

    states: [
        State {
            name: "lowwidth"
            when: root.isNarrow && (!root.isLow || face.height >= face.width)

            PropertyChanges {
                target: powerLabel
                x: (face.width - width) / 2
                y: 4
                transformOrigin: Item.Top
            }
            PropertyChanges {
                target: badge
                x: (face.width - width) / 2
                y: Math.min(powerLabel.y + powerLabel.height + 2, Math.max(0, face.height - height))
            }
            PropertyChanges {
                target: countLabel
                visible: face.width >= badge.fullWidth
            }
            PropertyChanges {
                target: nameLabel
                x: 3
                y: (badge.visible ? badge.y + badge.height : powerLabel.y + powerLabel.height) + 2
                height: Math.max(0, face.height - y - (modeLabel.visible ? modeLabel.height + 4 : 4))
            }
            PropertyChanges {
                target: modeLabel
                y: face.height - height - 4
                visible: root.manual && face.height >= nameLabel.y + 28 + height
            }
        },
        State {
            name: "lowheight"
            when: root.isLow

            PropertyChanges {
                target: powerLabel
                y: (face.height - height) / 2
                transformOrigin: Item.Right
            }
            PropertyChanges {
                target: badge
                y: (face.height - height) / 2
            }
            PropertyChanges {
                target: countLabel
                visible: face.width >= badge.fullWidth + powerLabel.width + 14 + 48
            }
            PropertyChanges {
                target: nameLabel
                x: badge.visible ? badge.x + badge.width + 4 : 6
                y: 2
                width: Math.max(0, powerLabel.x - x - 4)
                height: Math.max(0, face.height - 2 * y - (modeLabel.visible ? modeLabel.height : 0))
            }
            PropertyChanges {
                target: modeLabel
                y: face.height - height - 2
                visible: root.manual && face.height >= 28 + height
            }
        }
    ]

    transitions: Transition {
        enabled: root.enableAnimations

        NumberAnimation { properties: "x,y,width,height"; duration: 120; easing.type: Easing.InQuad }
    }
}
