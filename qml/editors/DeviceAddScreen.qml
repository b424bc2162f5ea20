// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import EnhancedMaterial 1.0 as EM
import controls 1.0
import radio 1.0
import scripts 1.0

// The form that adds devices of one type to a zone: one for each address that is typed, or a single one where the type
// addresses itself.
Column {
    id: root

    property string zoneUid
    readonly property bool needsAddress: typePicker.customAddress === ""
    readonly property bool hasErrors: typePicker.typeUrl === "" || properties.hasErrors
                                      || needsAddress && !addressField.acceptableInput

    signal devicesAdded(var devices)

    function accept() {
        if (hasErrors)
            return false
        properties.commit()
        if (properties.hasErrors)
            return false
        var addresses = needsAddress ? getAddresses(addressField.text) : [0]
        addressField.isEmptyRange = addresses.length === 0
        if (addresses.length === 0)
            return false
        devicesAdded(addresses.map(getDeviceObject))
        return true
    }

    // Numbers and ranges of them between commas. What is no address of a device is left out, a range ends at the last.
    function getAddresses(text) {
        var addresses = []
        var parts = text.split(",")
        for (var part of parts) {
            var bounds = part.split("-")
            var left = parseInt(bounds[0], 10)
            var right = bounds.length > 1 ? parseInt(bounds[1], 10) : left
            if (!(left > 0))
                continue
            right = Math.min(right, internal.lastAddress)
            for (var address = left; address <= right && addresses.length < internal.lastAddress; ++address)
                addresses.push(address)
        }
        return addresses
    }

    function getDeviceObject(address) {
        var radio = radioDevicesListModel.count > 0
                ? radioDevicesListModel.get(radioDevicesListModel.count > 1 ? Math.max(0, radioMenu.selectedIndex) : 0)
                : { deviceType: RadioDevicesListModel.None, deviceIndex: 0 }
        return {
            url: typePicker.typeUrl,
            zoneUid: zoneUid,
            address: address,
            data: Clone.clone(properties.deviceData),
            version: 1,
            radioType: radio.deviceType,
            radioIndex: radio.deviceIndex
        }
    }

    spacing: 8

    QtObject {
        id: internal

        readonly property int lastAddress: 65535
    }

    EM.TextField {
        id: addressField

        property bool isEmptyRange: false // as far as it was tried

        objectName: "addressField"
        width: parent.width
        visible: root.needsAddress
        label: qsTr("Адрес устройства")
        errorText: qsTr("Адреса устройств от 1 до 65535, через запятую или диапазоном: 1-3, 7")
        hasError: isEmptyRange || text !== "" && !acceptableInput
        inputMethodHints: Qt.ImhPreferNumbers
        validator: RegularExpressionValidator { regularExpression: /[0-9]+(-[0-9]+)?(,\s*[0-9]+(-[0-9]+)?)*/ }
        onTextEdited: isEmptyRange = false
    }

    ItemPicker {
        id: typePicker

        readonly property string typeUrl: selectedItem ? String(selectedItem) : ""
        property string customAddress

        // The properties of another type begin at their defaults.
        function showType() {
            var type = typeUrl !== "" ? deviceTypesListModel.getByUrl(typeUrl) : {}
            customAddress = type.customAddress || ""
            properties.setDefaultParameters(type.parameters)
        }

        objectName: "typePicker"
        width: parent.width
        label: qsTr("Тип устройства")
        source: deviceTypesListModel
        idRole: "url"
        textRole: "name"
        sortRole: "sortOrder"
        canSelectNothing: false
        onTypeUrlChanged: if (properties.item) showType()
    }

    EM.MenuField {
        id: radioMenu

        objectName: "radioMenu"
        width: parent.width
        visible: radioDevicesListModel.count > 1
        label: qsTr("Радио передатчик")
        model: radioDevicesListModel
        textRole: "prettyString"
    }

    DevicePropertiesEdit {
        id: properties

        width: parent.width
        onLoaded: typePicker.showType()
    }
}
