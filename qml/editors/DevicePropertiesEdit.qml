// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15

// The properties of a device: a field for each parameter of its type.
Loader {
    id: root

    property var deviceData: ({})
    property var initialData: null
    property bool interactive: true
    readonly property bool hasErrors: item !== null && item.hasErrors

    function setDefaultParameters(list) {
        item.setDefaultParameters(list)
        deviceData = item.deviceData
    }

    function setDeviceParameters(list, data) {
        item.setDeviceParameters(list, data)
        deviceData = item.deviceData
    }

    function commit() {
        item.commit()
    }

    sourceComponent: UniversalDeviceEdit {
        deviceData: root.deviceData
        initialData: root.initialData
        interactive: root.interactive
    }
}
