// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15

// A field for each parameter of a device. What the user gives is written into the data of the device at once.
Column {
    id: root

    property var parameters: [] // maps of "identificator", "description", "definition" and "defaultValue"
    property var deviceData: ({})
    property var initialData: null // what stands in the fields where the data has nothing
    property bool interactive: true
    readonly property var errors: internal.errors // identificators
    readonly property bool hasErrors: errors.length > 0

    // Each parameter at its default, whatever the data was.
    function setDefaultParameters(list) {
        show(list, {})
    }

    // What the data lacks gets its default.
    function setDeviceParameters(list, data) {
        show(list, data)
    }

    function registerError(id) {
        if (internal.errors.indexOf(id) < 0)
            internal.errors = internal.errors.concat([id])
    }

    function removeError(id) {
        if (internal.errors.indexOf(id) >= 0)
            internal.errors = internal.errors.filter(one => one !== id)
    }

    // What is typed but not finished yet goes into the data.
    function commit() {
        for (var i = 0; i < fields.count; ++i)
            fields.itemAt(i).commit()
    }

    function show(list, data) {
        var all = list && list.length !== undefined ? list : []
        parameters = []
        internal.errors = []
        var complete = {}
        for (var key in data)
            complete[key] = data[key]
        for (var i = 0; i < all.length; ++i) {
            var id = internal.idOf(all[i])
            if (id !== "" && complete[id] === undefined && all[i].defaultValue !== undefined)
                complete[id] = all[i].defaultValue
        }
        deviceData = complete
        parameters = all
    }

    spacing: 8

    QtObject {
        id: internal

        property var errors: []

        function idOf(parameter) {
            return parameter && parameter.identificator ? String(parameter.identificator) : ""
        }

        function valueOf(id) {
            var value = root.deviceData ? root.deviceData[id] : undefined
            return value === undefined && root.initialData ? root.initialData[id] : value
        }
    }

    Repeater {
        id: fields

        model: root.parameters

        TileFieldBase {
            readonly property string identificator: internal.idOf(modelData)

            objectName: "parameter_" + identificator
            width: root.width
            visible: hasEditor
            type: identificator !== "" && modelData.definition && modelData.definition.type
                  ? modelData.definition.type : ""
            label: identificator !== "" && modelData.description ? modelData.description : identificator
            definition: identificator !== "" ? modelData.definition : undefined
            displayValue: type === "list" && value !== undefined ? JSON.stringify(value) : ""
            interactive: root.interactive
            onValueEdited: {
                root.deviceData[identificator] = value
                this.value = value
            }
            onHasErrorChanged: {
                if (hasError)
                    root.registerError(identificator)
                else
                    root.removeError(identificator)
            }
            Component.onCompleted: value = internal.valueOf(identificator)
        }
    }
}
