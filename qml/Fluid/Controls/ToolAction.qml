// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15

// The button of one action in an app bar.
QC2.ToolButton {
    id: root

    // A press of a key is one of the button: it triggers the action, as a signal of the button alone would not.
    function press() {
        if (action)
            action.trigger(root)
        else
            clicked()
    }

    objectName: action ? action.objectName : ""
    implicitWidth: 48
    implicitHeight: 48
    visible: action && action.visible
    display: QC2.AbstractButton.IconOnly
    icon.color: !enabled ? Material.hintTextColor
                         : action && action.checked ? Material.accent : action && action.icon.color.a > 0
                                                      ? action.icon.color : Material.iconColor
    focusPolicy: Qt.StrongFocus
    Accessible.name: action ? action.text : ""
    Keys.onReturnPressed: press()
    Keys.onEnterPressed: press()
    QC2.ToolTip.visible: hovered && QC2.ToolTip.text !== ""
    QC2.ToolTip.delay: 500
    QC2.ToolTip.text: action ? action.toolTip : ""
}
