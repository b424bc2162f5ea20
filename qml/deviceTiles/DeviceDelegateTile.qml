// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import Fluid.Controls 1.0 as FL
import Fluid.Core 1.0 as FLC
import colors 1.0

// The frame of a card: what device it is, and a button that removes it. A click on it asks for its form.
FocusScope {
    id: root

    property var model: null // a row of the devices
    property string headerTitle: model ? String(model.address) : ""
    property string iconName: "hardware/memory"
    property color circleColor: Colors.blue
    readonly property var typeInfo: model && model.typeInfo ? model.typeInfo : ({})
    readonly property var deviceState: model && model.state ? model.state : ({})
    readonly property var deviceData: model && model.data ? model.data : ({})
    readonly property bool isRadioValid: !model || model.isRadioValid === true
    readonly property string fullTitle: {
        var parts = [headerTitle]
        if (!isRadioValid)
            parts.push(qsTr("Нет передатчика"))
        if (model && radioDevicesListModel.count > 1)
            parts.push(model.radioString)
        return parts.join(", ")
    }
    readonly property real errors: DeviceValues.number(deviceState.errors)
    readonly property string silenceText: DeviceValues.silence(errors, deviceData.pollingInterval)
    default property alias content: contentArea.data

    signal clicked()
    signal closeClicked()

    implicitWidth: 272
    implicitHeight: 192
    focus: true
    activeFocusOnTab: true
    Accessible.role: Accessible.Button
    Accessible.name: fullTitle
    Accessible.description: typeLabel.text
    Accessible.focusable: true
    Accessible.onPressAction: clicked()
    // When the keyboard comes back, it is to the card: a press of Return must not remove what a look at it was for.
    onActiveFocusChanged: {
        if (!activeFocus)
            closeButton.focus = false
    }
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
    Keys.onSpacePressed: clicked()

    Rectangle {
        anchors.fill: parent
        radius: 2
        color: mouse.pressed ? Material.color(Material.Grey, Material.Shade200)
                             : mouse.containsMouse ? Material.color(Material.Grey, Material.Shade50) : "white"
        border.width: root.activeFocus ? 2 : 1
        border.color: root.activeFocus ? Material.accent : Material.dividerColor
    }

    MouseArea {
        id: mouse

        anchors.fill: parent
        hoverEnabled: true
        onClicked: root.clicked()
    }

    Rectangle {
        objectName: "cardCircle"
        x: 16
        y: 16
        width: 40
        height: 40
        radius: 20
        color: root.circleColor

        FL.Icon {
            anchors.centerIn: parent
            name: root.iconName
            color: FLC.Color.isDarkColor(root.circleColor) ? "white" : "#313c43"
        }
    }

    QC2.Label {
        objectName: "cardTitle"
        x: 68
        y: 14
        width: Math.max(0, closeButton.x - x)
        elide: Text.ElideRight
        maximumLineCount: 1
        textFormat: Text.PlainText
        font.pixelSize: 16
        text: root.fullTitle
    }

    QC2.Label {
        id: typeLabel

        objectName: "cardType"
        x: 68
        y: 38
        width: Math.max(0, closeButton.x - x)
        elide: Text.ElideRight
        maximumLineCount: 1
        textFormat: Text.PlainText
        font.pixelSize: 12
        color: root.isRadioValid ? Material.secondaryTextColor : Colors.red
        text: root.typeInfo.name || ""
    }

    QC2.ToolButton {
        id: closeButton

        objectName: "cardClose"
        x: parent.width - width - 4
        y: 12
        width: FLC.Device.touchSize
        height: FLC.Device.touchSize
        focusPolicy: Qt.TabFocus
        icon.source: FLC.Utils.iconUrl("navigation/close")
        icon.color: Material.iconColor
        Accessible.name: qsTr("Удалить %1").arg(root.fullTitle)
        Keys.onReturnPressed: clicked()
        Keys.onEnterPressed: clicked()
        onClicked: root.closeClicked()
    }

    Item {
        id: contentArea

        anchors.fill: parent
        anchors.topMargin: 72
        anchors.leftMargin: 16
        anchors.rightMargin: 16
        anchors.bottomMargin: 12
    }
}
