// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15

// A row that is one switch: its texts at the left, the switch at the right, and a click anywhere on it toggles.
QC2.SwitchDelegate {
    id: root

    property string subText

    function toggleByKey() {
        toggle()
        toggled()
    }

    implicitWidth: 320
    implicitHeight: Math.max(subText === "" ? 48 : 64, contentItem.implicitHeight + topPadding + bottomPadding)
    leftPadding: 16
    rightPadding: 16
    topPadding: 4
    bottomPadding: 4
    focusPolicy: Qt.StrongFocus
    Accessible.name: text
    Accessible.description: subText
    Keys.onReturnPressed: toggleByKey()
    Keys.onEnterPressed: toggleByKey()

    contentItem: Item {
        implicitHeight: texts.height

        Column {
            id: texts

            anchors.verticalCenter: parent.verticalCenter
            width: parent.width

            QC2.Label {
                width: parent.width
                rightPadding: root.indicator.width + root.spacing
                wrapMode: Text.Wrap
                textFormat: Text.PlainText
                font.pixelSize: 16
                color: root.enabled ? Material.foreground : Material.hintTextColor
                text: root.text
            }

            QC2.Label {
                objectName: "switchSubText"
                width: parent.width
                rightPadding: root.indicator.width + root.spacing
                visible: text !== ""
                wrapMode: Text.Wrap
                textFormat: Text.PlainText
                font.pixelSize: 12
                color: root.enabled ? Material.secondaryTextColor : Material.hintTextColor
                text: root.subText
            }
        }
    }
}
