// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import Fluid.Core 1.0 as FLC

// Steps a scale up and down by a tenth; the button in the middle shows it and resets it to 1. The lock asks to hold the
// scale as it is, and whoever shows the slider does so.
Row {
    id: root

    property real value: 1
    property real minimum: 0.1
    property real maximum: 4
    property bool locked: false
    // A scale comes back rounded to the pixel: 0.8999 is the 90 % that was asked for.
    readonly property int percent: Math.floor(value * 100 + 0.02)

    signal moved(real scale)
    signal lockRequested(bool locked)

    QC2.ToolButton {
        objectName: "scaleDown"
        width: 48
        height: 48
        enabled: !root.locked && root.value >= root.minimum + 0.1
        text: "−"
        font.pixelSize: 22
        Accessible.name: qsTr("Масштаб -10%")
        Keys.onReturnPressed: clicked()
        Keys.onEnterPressed: clicked()
        onClicked: root.moved(Math.round(root.value * 10 - 1) / 10)
    }

    QC2.ToolButton {
        objectName: "scaleLabel"
        width: 64
        height: 48
        enabled: !root.locked && root.value !== 1
        text: qsTr("%1%").arg(root.percent)
        Accessible.description: qsTr("Масштаб 100%")
        Keys.onReturnPressed: clicked()
        Keys.onEnterPressed: clicked()
        onClicked: root.moved(1)
    }

    QC2.ToolButton {
        objectName: "scaleUp"
        width: 48
        height: 48
        enabled: !root.locked && root.value <= root.maximum - 0.1
        text: "+"
        font.pixelSize: 22
        Accessible.name: qsTr("Масштаб +10%")
        Keys.onReturnPressed: clicked()
        Keys.onEnterPressed: clicked()
        onClicked: root.moved(Math.round(root.value * 10 + 1) / 10)
    }

    QC2.ToolButton {
        objectName: "scaleLock"
        width: 48
        height: 48
        icon.source: FLC.Utils.iconUrl(root.locked ? "action/lock" : "action/lock_open")
        icon.color: root.locked ? Material.accent : Material.iconColor
        Accessible.name: root.locked ? qsTr("Разрешить изменение масштаба") : qsTr("Закрепить масштаб")
        Keys.onReturnPressed: clicked()
        Keys.onEnterPressed: clicked()
        onClicked: root.lockRequested(!root.locked)
    }
}
