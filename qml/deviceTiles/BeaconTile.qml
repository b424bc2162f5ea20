// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import colors 1.0

// A radio beacon: whether it is near, and since when.
DeviceDelegateTile {
    id: root

    readonly property bool active: deviceState.active === true || DeviceValues.number(deviceState.active) > 0
    readonly property real inactiveTime: Math.max(0, DeviceValues.number(deviceState.inactiveTime))
    readonly property string name: deviceData.name === undefined || deviceData.name === null ? ""
                                                                                             : String(deviceData.name)

    iconName: "device/bluetooth_searching"

    TileBar {
        objectName: "activityBar"
        y: 4
        width: parent.width
        color: root.active ? Colors.green : Colors.grey
        textColor: root.active ? "white" : "#313c43"
        text: root.active ? DeviceValues.time(qsTr("Активен: %1 %2"), root.deviceState.activeTime)
                          : DeviceValues.time(qsTr("Неактивен: %1 %2"), root.inactiveTime)
    }

    TileText {
        objectName: "nameText"
        y: 54
        width: parent.width
        visible: root.name !== ""
        text: qsTr("Название: %1").arg(root.name)
    }

    TileSignalIndicator {
        objectName: "signal"
        y: 80
        opacity: root.inactiveTime < 30 ? 1 - Math.min(root.inactiveTime / 30, 1) : 0
        radioType: root.model ? root.model.radioType : 0
        rssi: root.deviceState.rssidBm
    }
}
