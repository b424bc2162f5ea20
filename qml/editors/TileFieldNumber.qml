// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQml 2.15
import EnhancedMaterial 1.0 as EM

// A number within the limits of the definition, or within what a script counts exactly.
EM.Spinbox {
    id: root

    property string type: "integer"
    property var definition
    property var source // the value of outside, which the field shows until the user changes it
    readonly property real lower: limit("min", Number.MIN_SAFE_INTEGER)
    readonly property real upper: limit("max", Number.MAX_SAFE_INTEGER)

    signal valueEdited(real value)

    function limit(name, otherwise) {
        var number = definition ? definition[name] : undefined
        return typeof number === "number" && isFinite(number) ? number : otherwise
    }

    objectName: "numberField"
    decimals: type === "integer" ? 0 : 9
    // Limits that stand upside down would let no number pass.
    minimumValue: Math.min(lower, upper)
    maximumValue: Math.max(lower, upper)
    onValueModified: valueEdited(value)

    Binding {
        target: root
        property: "value"
        value: root.source
        restoreMode: Binding.RestoreNone
    }
}
