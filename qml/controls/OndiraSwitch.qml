// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15

// A switch with its text, large enough for a finger.
QC2.Switch {
    id: root

    function toggleByKey() {
        toggle()
        toggled()
    }

    implicitHeight: Math.max(48, contentItem.implicitHeight + topPadding + bottomPadding)
    implicitWidth: Math.max(48, contentItem.implicitWidth + leftPadding + rightPadding)
    topPadding: 4
    bottomPadding: 4
    focusPolicy: Qt.StrongFocus
    Accessible.name: text
    Keys.onReturnPressed: toggleByKey()
    Keys.onEnterPressed: toggleByKey()

    contentItem: QC2.Label {
        leftPadding: root.indicator.width + (text === "" ? 0 : root.spacing)
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.Wrap
        textFormat: Text.PlainText
        font: root.font
        color: root.enabled ? Material.foreground : Material.hintTextColor
        text: root.text
    }
}
