// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import EnhancedMaterial 1.0 as EM

// A value of a type that has no editor, only to be read.
EM.TextField {
    property var value
    property string displayValue

    objectName: "defaultField"
    readOnly: true
    hasError: false
    text: displayValue !== "" ? displayValue : value === undefined || value === null
          ? "" : typeof value === "object" ? JSON.stringify(value) : String(value)
}
