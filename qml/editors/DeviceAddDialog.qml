// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import EnhancedMaterial 1.0 as EM

// Adds devices to a zone. What was typed stays for the next time.
EM.Dialog {
    id: root

    property string zoneUid
    property var callback: null // of the uids of the new devices

    width: 520
    title: qsTr("Добавление устройства")
    unloadOnClose: false
    positiveButton.enabled: item !== null && !item.hasErrors

    DeviceAddScreen {
        zoneUid: root.zoneUid
        onDevicesAdded: {
            if (root.callback)
                devicesListModel.addDevice(devices, root.callback)
            else
                devicesListModel.addDevice(devices)
        }
    }
}
