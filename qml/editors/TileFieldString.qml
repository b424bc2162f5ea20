// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQml 2.15
import EnhancedMaterial 1.0 as EM

// A text within the limits of the definition. It is told once it is finished.
EM.TextField {
    id: root

    property var definition
    property var value
    readonly property string valueText: value === undefined || value === null ? "" : String(value)
    readonly property var pattern: patternOf(definition)

    signal valueEdited(string value)

    function commit() {
        if (acceptableInput && text !== valueText)
            valueEdited(text)
    }

    // None where there is none, or one that can't be read.
    function patternOf(definition) {
        if (!definition || typeof definition.regex !== "string" || definition.regex === "")
            return null
        try {
            return new RegExp(definition.regex)
        } catch (error) {
            return null
        }
    }

    objectName: "stringField"
    characterLimit: definition && definition.maxLength >= 0 && definition.maxLength < 2147483647
                    ? definition.maxLength : -1
    validator: pattern ? expression : null
    onEditingFinished: commit()

    RegularExpressionValidator {
        id: expression

        regularExpression: root.pattern || /.*/
    }

    Binding {
        target: root
        property: "text"
        value: root.valueText
        restoreMode: Binding.RestoreNone
    }
}
