// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15

// A number in a field, typed or stepped by the arrow keys: all of Spinbox but how its text follows the value.
MaterialTextField {
    id: root

    property var value: 0 // a number; anything else shows as an empty field
    property int decimals: 0
    property real minimumValue: Number.MIN_SAFE_INTEGER
    property real maximumValue: Number.MAX_SAFE_INTEGER
    property real step: 1

    signal valueModified() // by the user

    function format(value) {
        var number = numberOf(value)
        if (!isFinite(number))
            return ""
        if (number % 1 === 0)
            return number.toFixed(0)
        var fixed = number.toFixed(digits())
        if (fixed.indexOf(".") >= 0)
            fixed = fixed.replace(/\.?0+$/, "")
        return fixed === "-0" ? "0" : fixed
    }

    function numberOf(value) {
        return value === null || value === undefined || value === "" ? NaN : Number(value)
    }

    function digits() {
        return Math.max(0, Math.min(decimals, 20))
    }

    function isBound(value) {
        return Math.abs(value) < Number.MAX_SAFE_INTEGER
    }

    function stepBy(count) {
        if (readOnly || !enabled)
            return
        var number = numberOf(value)
        var next = (isFinite(number) ? number + count * step : 0)
        next = Math.max(minimumValue, Math.min(maximumValue, Number(next.toFixed(digits()))))
        text = format(next)
        modify(next)
    }

    function modify(number) {
        if (number === value)
            return
        value = number
        valueModified()
    }

    inputMethodHints: decimals <= 0 && minimumValue >= 0 ? Qt.ImhDigitsOnly : Qt.ImhFormattedNumbersOnly
    errorText: !isBound(minimumValue) && !isBound(maximumValue)
               ? qsTr("Числовое значение")
               : qsTr("Значение") + (isBound(minimumValue) ? qsTr(" от %1").arg(format(minimumValue)) : "")
                 + (isBound(maximumValue) ? qsTr(" до %1").arg(format(maximumValue)) : "")
    // The validator lets commas between thousands pass.
    hasError: characterLimit >= 0 && length > characterLimit || !acceptableInput || !isFinite(numberOf(text))
    // A point on any locale.
    validator: DoubleValidator {
        locale: "en_GB"
        notation: DoubleValidator.StandardNotation
        decimals: root.digits()
        bottom: root.minimumValue
        top: root.maximumValue
    }
    onTextEdited: {
        if (acceptableInput && isFinite(numberOf(text)))
            modify(numberOf(text))
    }
    Keys.onUpPressed: stepBy(1)
    Keys.onDownPressed: stepBy(-1)
}
