// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQuick.Layouts 1.15
import EnhancedMaterial 1.0 as EM
import Fluid.Controls 1.0 as FL
import Fluid.Core 1.0 as FLC
import controls 1.0

// The elements of a list, all of one type: a row each, more of them and fewer.
EM.Dialog {
    id: root

    property var elementLimits: null
    property string elementType
    property bool canEditType: false
    property var initialData: []
    property int minLength: 0
    property int maxLength: -1 // -1: no limit
    property var callback: null // of the elements and their type

    // A type by its name, or as the map of the limits of each element.
    function showEditor(type, editableType, data, minLength, maxLength, callback) {
        elementLimits = type !== null && typeof type === "object" ? type : null
        elementType = elementLimits ? elementLimits.type || "" : type || ""
        canEditType = !elementLimits && (editableType || elementType === "" || elementType === "void")
        initialData = data
        root.minLength = Math.max(0, minLength)
        root.maxLength = maxLength
        root.callback = typeof callback === "function" ? callback : null
        open()
    }

    width: 520
    title: qsTr("Редактирование списка")
    positiveButton.enabled: item !== null && !item.hasErrors

    ColumnLayout {
        id: content

        readonly property var types: ["integer", "double", "bool", "string"]
        property string type
        property var items: []
        property var wrong: []
        readonly property bool hasErrors: wrong.length > 0

        function aboutToShow() {
            type = root.elementType === "void" ? "" : root.elementType
            if (type === "" && root.canEditType)
                type = types[0]
            typeMenu.selectedIndex = types.indexOf(type)
            var list = Array.from(root.initialData || [])
            if (root.maxLength >= 0)
                list.length = Math.min(list.length, root.maxLength)
            // A limit that nobody can fill by hand is one of a broken definition.
            while (list.length < Math.min(root.minLength, 1000))
                list.push(defaultElement())
            items = list
        }

        function accept() {
            commit()
            if (hasErrors)
                return false
            if (root.callback)
                root.callback(items.slice(), type)
            return true
        }

        function commit() {
            for (var i = 0; i < items.length; ++i) {
                var row = list.itemAtIndex(i)
                if (row)
                    row.commit()
            }
        }

        function defaultElement() {
            switch (type) {
            case "integer":
            case "double":
            case "enum": return 0
            case "bool": return false
            }
            return ""
        }

        function convert(value) {
            switch (type) {
            case "integer": return isFinite(Number(value)) ? Math.trunc(Number(value)) : 0
            case "double": return isFinite(Number(value)) ? Number(value) : 0
            case "bool": return Boolean(value)
            }
            return String(value)
        }

        function setType(name) {
            commit()
            type = name
            items = items.map(convert)
        }

        function append() {
            commit()
            items = items.concat([defaultElement()])
            list.positionViewAtEnd()
        }

        function remove(index) {
            commit()
            items = items.filter((item, place) => place !== index)
        }

        function setError(index, isWrong) {
            wrong = wrong.filter(place => place !== index).concat(isWrong ? [index] : [])
        }

        spacing: 8

        EM.MenuField {
            id: typeMenu

            objectName: "listTypeMenu"
            Layout.fillWidth: true
            enabled: root.canEditType
            visible: content.types.indexOf(content.type) >= 0
            label: qsTr("Тип списка")
            model: [qsTr("Целое число"), qsTr("Дробное число"), qsTr("Да или нет"), qsTr("Строка")]
            onItemSelected: content.setType(content.types[index])
        }

        ListView {
            id: list

            objectName: "elementsList"
            Layout.fillWidth: true
            Layout.preferredHeight: Math.min(contentHeight, 360)
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            cacheBuffer: 10000
            model: content.items.length
            QC2.ScrollBar.vertical: QC2.ScrollBar {}

            delegate: RowLayout {
                id: row

                function commit() {
                    field.commit()
                }

                width: ListView.view.width
                spacing: 0
                Component.onDestruction: content.setError(index, false)

                TileFieldBase {
                    id: field

                    objectName: "element" + index
                    Layout.fillWidth: true
                    type: content.type
                    definition: root.elementLimits
                    value: content.items[index]
                    onValueEdited: content.items[index] = value
                    onHasErrorChanged: content.setError(index, hasError)
                }

                QC2.ToolButton {
                    objectName: "removeElement" + index
                    Layout.preferredWidth: FLC.Device.touchSize
                    Layout.preferredHeight: FLC.Device.touchSize
                    enabled: content.items.length > root.minLength
                    focusPolicy: Qt.StrongFocus
                    icon.source: FLC.Utils.iconUrl("action/delete")
                    icon.color: enabled ? Material.iconColor : Material.hintTextColor
                    Accessible.name: qsTr("Удалить")
                    Keys.onReturnPressed: clicked()
                    Keys.onEnterPressed: clicked()
                    onClicked: content.remove(index)
                }
            }
        }

        FL.BodyLabel {
            objectName: "noElements"
            Layout.fillWidth: true
            visible: content.items.length === 0
            color: Material.secondaryTextColor
            text: qsTr("Список пуст")
        }

        OndiraButton {
            objectName: "addElement"
            flat: true
            highlighted: true
            enabled: root.maxLength < 0 || content.items.length < root.maxLength
            iconName: "content/add"
            text: qsTr("Добавить")
            onClicked: content.append()
        }
    }
}
