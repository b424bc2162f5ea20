// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15

// The card of a device, by the kind that its type says it is.
FocusScope {
    id: root

    property var model: null // a row of the devices
    readonly property string commonType: model && model.commonType ? model.commonType : ""
    readonly property var files: ({
        "lamp": "LampTile.qml",
        "polling_lamp": "LampTile.qml",
        "polling_light_sensor": "LightSensorTile.qml",
        "polling_temp_sensor": "TemperatureSensorTile.qml",
        "polling_contactor": "Quadrel16Tile.qml",
        "polling_rs_electric_meter": "ElectricMeterTile.qml",
        "sensor_contact": "Brindle6Tile.qml",
        "beacon": "BeaconTile.qml",
        "lamp_group": "LampGroupTile.qml"
    })
    readonly property string file: !model ? "" : files.hasOwnProperty(commonType) ? files[commonType]
                                                                                 : "DummyDeviceTile.qml"
    readonly property Item card: loader.item

    signal clicked()
    signal closeClicked()

    function load() {
        if (file === "")
            loader.source = ""
        else
            loader.setSource(Qt.resolvedUrl(file), { model: model })
    }

    implicitWidth: 272
    implicitHeight: 192
    onFileChanged: load()

    Loader {
        id: loader

        anchors.fill: parent
        focus: true
    }

    Connections {
        target: loader.item

        function onClicked() { root.clicked() }
        function onCloseClicked() { root.closeClicked() }
    }
}
