// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import Fluid.Core 1.0 as FLC

// An icon that is on or off: in the accent colour while it is on, and with another icon if it has one.
QC2.ToolButton {
    id: root

    property string iconName // "group/name", or the address of a picture
    property string checkedIconName: iconName
    property string toolTip: text

    function toggleByKey() {
        toggle()
        toggled()
    }

    implicitWidth: FLC.Device.touchSize
    implicitHeight: FLC.Device.touchSize
    checkable: true
    display: QC2.AbstractButton.IconOnly
    focusPolicy: Qt.StrongFocus
    icon.source: FLC.Utils.iconUrl(checked ? checkedIconName : iconName)
    icon.color: !enabled ? Material.hintTextColor : checked ? Material.accent : Material.iconColor
    Accessible.role: Accessible.CheckBox
    Accessible.name: text === "" ? toolTip : text
    Keys.onReturnPressed: toggleByKey()
    Keys.onEnterPressed: toggleByKey()
    QC2.ToolTip.visible: hovered && toolTip !== ""
    QC2.ToolTip.delay: 500
    QC2.ToolTip.text: toolTip
}
