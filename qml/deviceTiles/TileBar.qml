// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15

// The widest thing of a card: a bar in one colour with a text on it.
Rectangle {
    id: root

    property string text
    property color textColor: "#313c43"

    implicitWidth: 240
    implicitHeight: 40
    radius: 2
    border.color: Material.dividerColor

    QC2.Label {
        anchors.fill: parent
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        maximumLineCount: 1
        textFormat: Text.PlainText
        font.pixelSize: 16
        color: root.textColor
        text: root.text
    }
}
