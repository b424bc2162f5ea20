// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls.Material 2.15
import QtQuick.Layouts 1.15

// Stands where something is missing, and says what.
Item {
    id: root

    property string icon // "group/name", or the address of a picture
    property string text
    property string subText

    implicitWidth: 560
    implicitHeight: content.implicitHeight

    ColumnLayout {
        id: content

        anchors.centerIn: parent
        width: Math.min(parent.width, 560)
        spacing: 8

        Icon {
            Layout.alignment: Qt.AlignHCenter
            visible: root.icon !== ""
            size: 72
            color: Material.hintTextColor
            name: root.icon
        }

        HeadlineLabel {
            objectName: "placeholderTitle"
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            font.pixelSize: 20
            visible: text !== ""
            text: root.text
        }

        BodyLabel {
            objectName: "placeholderText"
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            color: Material.secondaryTextColor
            visible: text !== ""
            text: root.subText
        }
    }
}
