// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import EnhancedMaterial 1.0 as EM
import Fluid.Controls 1.0 as FL
import IconSet 1.0
import controls 1.0

// An indicator of the plan: a text or the value of a device, its icon and its colours.
Column {
    id: root

    property string uid
    property string partUid
    property var model: ({}) // the record, as it was when the form opened
    property alias label: labelField.text
    property alias textColor: textColorField.value
    property alias iconColor: iconColorField.value
    // The first row is none at all.
    readonly property var iconsListModel: [{ text: qsTr("Нет иконки"), icon: "" }].concat(
        IconSet.names().map(name => ({ text: name.slice(name.indexOf("/") + 1), icon: name })))

    function aboutToShow() {
        model = indicatorsListModel.getByUid(uid)
        typeMenu.selectedIndex = model.indicatorType === 1 ? 1 : 0
        label = model.label || ""
        alignmentMenu.selectedIndex = model.horizontalAlignment < 4 ? model.horizontalAlignment : 0
        devicePicker.initialItem = model.valueDevice || null
        internal.property = model.valueProperty || ""
        internal.reselect()
        textColor = model.textColor || "black"
        iconColor = model.iconColor || "black"
        // An icon that the program does not have is kept all the same.
        internal.unknownIcon = model.icon && !iconMenu.select("icon", model.icon) ? model.icon : ""
        if (!model.icon)
            iconMenu.selectedIndex = 0
    }

    function accept() {
        var icon = iconMenu.get(iconMenu.selectedIndex)
        indicatorsListModel.changeIndicator({
            uid: uid,
            indicatorType: typeMenu.selectedIndex,
            label: label,
            icon: icon ? icon.icon : internal.unknownIcon,
            textColor: String(textColor),
            iconColor: String(iconColor),
            valueDevice: devicePicker.selectedItem,
            valueProperty: internal.property,
            horizontalAlignment: alignmentMenu.selectedIndex
        })
    }

    width: parent ? parent.width : implicitWidth
    spacing: 8
    Component.onCompleted: aboutToShow()

    QtObject {
        id: internal

        property string property // of the device, as chosen
        property string unknownIcon
        property var device: ({})
        readonly property var states: device.typeInfo && device.typeInfo.state ? device.typeInfo.state : []
        readonly property string valueText: textOf(device.state ? device.state[property] : undefined)

        function textOf(value) {
            return value === undefined || value === null ? "" : typeof value === "object" ? JSON.stringify(value)
                                                                                          : String(value)
        }

        function update() {
            var uid = devicePicker.selectedItem
            device = uid ? devicesListModel.getByUid(uid) : {}
        }

        function reselect() {
            propertyMenu.select("identificator", property)
        }
    }

    Connections {
        target: devicesListModel
        enabled: devicePicker.visible

        // A whole list may change row by row.
        function onDataChanged() {
            Qt.callLater(internal.update)
        }
    }

    EM.MenuField {
        id: typeMenu

        objectName: "typeMenu"
        width: parent.width
        label: qsTr("Тип отображения")
        model: [qsTr("Текст"), qsTr("Значение")]
    }

    EM.TextField {
        id: labelField

        objectName: "labelField"
        width: parent.width
        visible: typeMenu.selectedIndex === 0
        label: qsTr("Описание")
        placeholderText: qsTr("Описание индикатора")
    }

    EM.MenuField {
        id: alignmentMenu

        objectName: "alignmentMenu"
        width: parent.width
        label: qsTr("Горзонтальное выравнивание")
        textRole: "text"
        iconNameRole: "icon"
        model: [
            { text: qsTr("По левому краю"), icon: "editor/format_align_left" },
            { text: qsTr("По правому краю"), icon: "editor/format_align_right" },
            { text: qsTr("По центру"), icon: "editor/format_align_center" },
            { text: qsTr("По ширине"), icon: "editor/format_align_justify" }
        ]
    }

    ItemPicker {
        id: devicePicker

        objectName: "devicePicker"
        width: parent.width
        visible: typeMenu.selectedIndex === 1
        label: qsTr("Отображать устройство")
        source: devicesListModel
        textRole: "prettyString"
        idRole: "uid"
        sortRole: "sort"
        onSelectedItemChanged: internal.update()
    }

    EM.MenuField {
        id: propertyMenu

        objectName: "propertyMenu"
        width: parent.width
        visible: typeMenu.selectedIndex === 1
        label: qsTr("Отображать параметр")
        helperText: qsTr("Текущее значение = %1").arg(internal.valueText)
        textRole: "description"
        model: internal.states
        selectedIndex: -1
        onModelChanged: internal.reselect()
        onCountChanged: internal.reselect()
        onItemSelected: internal.property = get(index).identificator
    }

    ColorField {
        id: textColorField

        objectName: "textColorField"
        width: parent.width
        text: qsTr("Цвет текста")
    }

    Row {
        width: parent.width
        spacing: 16

        EM.MenuFieldWithSearch {
            id: iconMenu

            objectName: "iconMenu"
            width: parent.width - 56
            label: qsTr("Иконка")
            model: root.iconsListModel
            textRole: "text"
            iconNameRole: "icon"
            searchRole: "icon"
            onItemSelected: internal.unknownIcon = ""
        }

        FL.Icon {
            objectName: "iconPreview"
            anchors.verticalCenter: parent.verticalCenter
            size: 40
            color: root.iconColor
            name: iconMenu.selectedIcon
        }
    }

    ColorField {
        id: iconColorField

        objectName: "iconColorField"
        width: parent.width
        text: qsTr("Цвет иконки")
    }
}
