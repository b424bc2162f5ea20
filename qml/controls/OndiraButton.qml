// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQuick.Layouts 1.15
import Fluid.Controls 1.0 as FL
import Fluid.Core 1.0 as FLC

// A button with a text, and an icon of the set beside it where it has one.
QC2.Button {
    id: root

    property string iconName // "group/name", or the address of a picture
    readonly property color faceColor: !enabled ? Material.hintTextColor
                                                : highlighted ? flat ? Material.accent
                                                                     : Material.primaryHighlightedTextColor
                                                              : Material.foreground

    implicitHeight: Math.max(FLC.Device.touchSize, contentItem.implicitHeight + topPadding + bottomPadding)
    leftPadding: 16
    rightPadding: 16
    spacing: 8
    focusPolicy: Qt.StrongFocus
    Accessible.name: text
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    contentItem: RowLayout {
        spacing: root.spacing

        FL.Icon {
            Layout.preferredWidth: 24
            Layout.preferredHeight: 24
            Layout.alignment: Qt.AlignCenter
            visible: root.iconName !== ""
            color: root.faceColor
            name: root.iconName
        }

        QC2.Label {
            objectName: "buttonText"
            Layout.fillWidth: true
            visible: text !== ""
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            wrapMode: Text.Wrap
            textFormat: Text.PlainText
            font: root.font
            color: root.faceColor
            text: root.text
        }
    }
}
