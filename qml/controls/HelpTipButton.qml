// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQuick.Window 2.15
import Fluid.Core 1.0 as FLC

// A question mark that explains what it stands by. The tip opens and closes by a click, Space or Return, and closes by
// Escape or a press elsewhere.
QC2.ToolButton {
    id: root

    property string tip
    readonly property bool opened: popup.visible

    implicitWidth: FLC.Device.touchSize
    implicitHeight: FLC.Device.touchSize
    enabled: tip !== ""
    display: QC2.AbstractButton.IconOnly
    focusPolicy: Qt.StrongFocus
    icon.source: "qrc:/icons/material/action/help_outline.svg"
    icon.color: !enabled ? Material.hintTextColor : opened ? Material.accent : Material.iconColor
    text: qsTr("Подсказка")
    Accessible.description: tip
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
    Keys.onEscapePressed: {
        event.accepted = popup.visible
        popup.close()
    }
    onClicked: popup.visible ? popup.close() : popup.open()
    onVisibleChanged: popup.close()

    QC2.Popup {
        id: popup

        objectName: "helpTip"
        x: root.width - width
        y: root.height
        width: Math.min(320, tipLabel.implicitWidth + leftPadding + rightPadding, root.Window.width - 16)
        padding: 12
        margins: 8
        closePolicy: QC2.Popup.CloseOnEscape | QC2.Popup.CloseOnPressOutsideParent

        contentItem: QC2.Label {
            id: tipLabel

            objectName: "helpTipText"
            wrapMode: Text.Wrap
            textFormat: Text.PlainText
            Accessible.role: Accessible.ToolTip
            text: root.tip
        }
    }
}
