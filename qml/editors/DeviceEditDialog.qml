// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import EnhancedMaterial 1.0 as EM
import radio 1.0
import scripts 1.0

// The address, the radio and the properties of a device.
EM.Dialog {
    id: root

    property string uid

    // A device that is not there has nothing to edit.
    function openDialog(uid) {
        if (devicesListModel.getByUid(uid).uid === undefined)
            return
        root.uid = uid
        open()
    }

    width: 520
    title: qsTr("Редактирование устройства")
    positiveButton.enabled: item !== null && !item.hasErrors

    Column {
        id: form

        property var record: ({})
        property string customAddress
        readonly property bool hasErrors: properties.hasErrors || addressField.visible && addressField.hasError

        function aboutToShow() {
            record = devicesListModel.getByUid(root.uid)
            var type = record.url ? deviceTypesListModel.getByUrl(record.url) : {}
            customAddress = type.customAddress || ""
            addressField.value = record.address || 0
            radioMenu.selectedIndex = radioDevicesListModel.indexForDevice(record.radioType || 0,
                                                                           record.radioIndex || 0)
            properties.setDeviceParameters(type.parameters, record.data || {})
        }

        function accept() {
            properties.commit()
            if (hasErrors)
                return false
            // It may have gone in the meantime. A change is sent with all that a device is.
            var now = devicesListModel.getByUid(root.uid)
            if (now.uid === undefined)
                return true
            var radio = chosenRadio()
            devicesListModel.changeDevice([{
                uid: root.uid,
                url: String(now.url),
                zoneUid: String(now.zoneUid),
                version: now.version,
                data: Clone.clone(properties.deviceData),
                address: customAddress === "" ? addressField.value : now.address,
                radioType: radio.deviceType,
                radioIndex: radio.deviceIndex
            }])
            return true
        }

        // The device keeps a radio that is not there until another is chosen.
        function chosenRadio() {
            if (radioDevicesListModel.count === 0)
                return { deviceType: RadioDevicesListModel.None, deviceIndex: 0 }
            return radioMenu.selectedIndex >= 0 ? radioDevicesListModel.get(radioMenu.selectedIndex)
                                                : { deviceType: record.radioType, deviceIndex: record.radioIndex }
        }

        spacing: 8

        EM.Spinbox {
            id: addressField

            objectName: "addressField"
            width: parent.width
            visible: form.customAddress === ""
            label: qsTr("Адрес устройства")
            minimumValue: 0
            maximumValue: 65535
        }

        EM.MenuField {
            id: radioMenu

            objectName: "radioMenu"
            width: parent.width
            visible: radioDevicesListModel.count > 0
            label: qsTr("Радио передатчик")
            model: radioDevicesListModel
            textRole: "prettyString"
            selectedIndex: -1
        }

        DevicePropertiesEdit {
            id: properties

            width: parent.width
        }
    }
}
