// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import Fluid.Controls 1.0 as FL
import Fluid.Core 1.0 as FLC

// What a floating action button shows and does; its size is given by the types that build on it. It is round with an
// icon, and while extended it has its text beside it.
QC2.RoundButton {
    id: root

    property bool mini: false
    property bool extended: false
    readonly property bool showsText: text !== "" && (extended || icon.source == "")
    readonly property real faceHeight: mini ? 40 : 56
    readonly property real faceWidth: showsText ? Math.max(faceHeight, content.implicitWidth + 2 * sidePadding)
                                                : faceHeight
    readonly property real sidePadding: mini ? 12 : 16

    padding: 0
    radius: faceHeight / 2
    highlighted: true
    focusPolicy: Qt.StrongFocus
    icon.width: 24
    icon.height: 24
    Accessible.name: text
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
    QC2.ToolTip.visible: hovered && !showsText && text !== ""
    QC2.ToolTip.delay: 500
    QC2.ToolTip.text: text

    contentItem: Item {
        Row {
            id: content

            readonly property color color: root.enabled ? root.Material.primaryHighlightedTextColor
                                                        : root.Material.hintTextColor

            anchors.centerIn: parent
            spacing: 8

            FL.Icon {
                anchors.verticalCenter: parent.verticalCenter
                visible: root.icon.source != ""
                color: content.color
                name: root.icon.source
            }

            FL.BodyLabel {
                objectName: "fabText"
                anchors.verticalCenter: parent.verticalCenter
                visible: root.showsText
                wrapMode: Text.NoWrap
                font.weight: Font.Medium
                color: content.color
                text: root.text
            }
        }
    }

    // A small one is hit in a larger area than it shows.
    MouseArea {
        anchors.centerIn: parent
        z: -1
        width: FLC.Device.touchSize
        height: FLC.Device.touchSize
        enabled: root.mini
        onClicked: root.clicked()
    }
}
