// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15

// The editor of one value, by its type. A type that is void or has no name has none; one that nobody knows is shown.
FocusScope {
    id: root

    property string type
    property string label
    property var definition // the limits of the value; what is missing in them limits nothing
    property var value
    property string displayValue // of a list or of a value that nobody knows, where it is not the value's own text
    property bool interactive: true
    property bool canEditLimits: false // items of a choice that has none may be given here
    property bool typedElements: false // a list is told with the type of each element
    readonly property bool hasEditor: type !== "" && type !== "void"
    readonly property bool hasError: loader.item !== null && loader.item.hasError === true
    readonly property alias editor: loader.item

    signal valueEdited(var value) // by the user
    signal limitsEdited(var limits)

    // What is typed but not finished yet becomes the value.
    function commit() {
        if (loader.item && typeof loader.item.commit === "function")
            loader.item.commit()
    }

    function editorFor(type) {
        switch (type) {
        case "":
        case "void": return null
        case "enum": return enumEditor
        case "integer":
        case "double": return numberEditor
        case "string": return stringEditor
        case "list": return listEditor
        case "entity": return entityEditor
        case "bool": return boolEditor
        }
        return defaultEditor
    }

    implicitWidth: 200
    implicitHeight: hasEditor ? Math.max(24, loader.implicitHeight) : 0

    Loader {
        id: loader

        width: parent.width
        focus: true
        sourceComponent: root.editorFor(root.type)
    }

    Component {
        id: enumEditor

        TileFieldEnum {
            enabled: root.interactive
            label: root.label
            definition: root.definition
            value: root.value
            canEditItems: root.canEditLimits
            onValueEdited: root.valueEdited(value)
            onLimitsEdited: root.limitsEdited(limits)
        }
    }

    Component {
        id: numberEditor

        TileFieldNumber {
            enabled: root.interactive
            type: root.type
            label: root.label
            definition: root.definition
            source: root.value
            onValueEdited: root.valueEdited(value)
        }
    }

    Component {
        id: stringEditor

        TileFieldString {
            enabled: root.interactive
            label: root.label
            definition: root.definition
            value: root.value
            onValueEdited: root.valueEdited(value)
        }
    }

    Component {
        id: listEditor

        TileFieldList {
            enabled: root.interactive
            label: root.label
            definition: root.definition
            value: root.value
            displayValue: root.displayValue
            typedElements: root.typedElements
            onValueEdited: root.valueEdited(value)
        }
    }

    Component {
        id: entityEditor

        TileFieldEntity {
            enabled: root.interactive
            label: root.label
            definition: root.definition
            value: root.value
            onValueEdited: root.valueEdited(value)
        }
    }

    Component {
        id: boolEditor

        TileFieldBool {
            enabled: root.interactive
            label: root.label
            value: root.value
            onValueEdited: root.valueEdited(value)
        }
    }

    Component {
        id: defaultEditor

        TileFieldDefault {
            label: root.label
            value: root.value
            displayValue: root.displayValue
        }
    }
}
