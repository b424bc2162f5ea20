// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import EnhancedMaterial 1.0 as EM
import Fluid.Controls 1.0 as FL

// A list as a text; a click or Return opens a dialog of its elements.
EM.TextField {
    id: root

    property var definition
    property var value
    property string displayValue
    property bool typedElements: false // told are maps with "type" and "value"
    readonly property var elements: value && typeof value === "object" && value.length !== undefined ? value : []
    readonly property int minLength: bound("minLength", 0)
    readonly property int maxLength: bound("maxLength", 2147483647)
    readonly property var limits: definition && definition.elementLimits ? definition.elementLimits : null
    readonly property string listType: definition && definition.listType ? definition.listType : ""
    readonly property bool canEditType: listType === "void"

    signal valueEdited(var value)

    function bound(name, otherwise) {
        var number = definition ? definition[name] : undefined
        return typeof number === "number" && number >= 0 && number <= 2147483647 ? number : otherwise
    }

    function openEditor() {
        dialogLoader.active = true
        dialogLoader.item.showEditor(limits || (canEditType ? guessedType() : listType), canEditType, elements,
                                     minLength, maxLength === 2147483647 ? -1 : maxLength, take)
    }

    // A list of any type is of that which it holds already.
    function guessedType() {
        var first = elements.length > 0 ? elements[0] : undefined
        return typeof first === "boolean" ? "bool" : typeof first === "string" ? "string" : typeof first !== "number"
               ? "" : elements.every(one => one % 1 === 0) ? "integer" : "double"
    }

    function take(data, type) {
        valueEdited(!typedElements ? data : data.map(function(element) {
            return { type: type, value: type === "enum" ? { index: element } : type === "entity"
                                        ? { type: limits ? limits.entityType : "device", uid: element } : element }
        }))
    }

    objectName: "listField"
    readOnly: true
    hasError: elements.length < minLength || elements.length > maxLength
    errorText: minLength > 0 || maxLength < 2147483647
               ? qsTr("Элементов") + (minLength > 0 ? qsTr(" от %1").arg(minLength) : "")
                 + (maxLength < 2147483647 ? qsTr(" до %1").arg(maxLength) : "") : ""
    text: displayValue !== "" ? displayValue : value === undefined || value === null ? "" : JSON.stringify(value)
    onClicked: openEditor()
    Keys.onReturnPressed: openEditor()
    Keys.onEnterPressed: openEditor()
    Keys.onSpacePressed: openEditor()

    trailing: FL.Icon {
        anchors.verticalCenter: parent ? parent.verticalCenter : undefined
        color: Material.secondaryTextColor
        name: "image/edit"
    }

    Loader {
        id: dialogLoader

        active: false
        source: "TileFieldListEditDialog.qml"
    }
}
