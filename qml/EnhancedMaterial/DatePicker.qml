// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import Fluid.Core 1.0 as FLC

// A field for a date: digits typed get their dashes, and a button opens the calendar. A text that is no date does not
// reach the selected date, and gives way to it when the field loses the focus.
TextField {
    id: root

    property string dateFormat: "yyyy-MM-dd"
    property date selectedDate
    property string locale: "ru_RU"
    readonly property bool isMasked: dateFormat === "yyyy-MM-dd"

    // Digits alone, with a dash as soon as something follows it.
    function mask(text) {
        var parts = /(\d{0,4})(\d{0,2})(\d{0,2})/.exec(text.replace(/\D/g, ""))
        return parts.slice(1).filter(function(part) { return part !== "" }).join("-")
    }

    // The date that a text says, or null.
    function parse(text) {
        if (!isMasked) {
            var read = Date.fromLocaleDateString(Qt.locale(locale), text, dateFormat)
            return isNaN(read) ? null : read
        }
        var parts = /^(\d{4})-(\d{2})-(\d{2})$/.exec(text)
        if (!parts || parts[1] === "0000")
            return null
        var date = new Date(2000, 0, 1)
        date.setFullYear(Number(parts[1]), Number(parts[2]) - 1, Number(parts[3]))
        // The 31st of June would be the 1st of July.
        return date.getMonth() === parts[2] - 1 && date.getDate() === Number(parts[3]) ? date : null
    }

    function format(date) {
        return isNaN(date) ? "" : date.toLocaleDateString(Qt.locale(locale), dateFormat)
    }

    function openCalendar() {
        calendar.pick(selectedDate)
    }

    hasError: text !== "" && parse(text) === null
    errorText: qsTr("Нет такой даты")
    inputMethodHints: isMasked ? Qt.ImhDigitsOnly : Qt.ImhNone
    onSelectedDateChanged: internal.showDate()
    onDateFormatChanged: internal.showDate()
    onLocaleChanged: internal.showDate()
    onTextEdited: internal.read()
    onIsActiveChanged: if (!isActive) internal.showDate()
    Component.onCompleted: internal.showDate()
    Keys.onPressed: {
        event.accepted = event.key === Qt.Key_Down && event.modifiers & Qt.AltModifier
        if (event.accepted)
            openCalendar()
    }

    trailing: QC2.ToolButton {
        objectName: "calendarButton"
        width: FLC.Device.touchSize
        height: FLC.Device.touchSize
        enabled: !root.readOnly
        focusPolicy: Qt.StrongFocus
        icon.source: FLC.Utils.iconUrl("action/event")
        icon.color: enabled ? Material.secondaryTextColor : Material.hintTextColor
        Accessible.name: qsTr("Открыть календарь")
        Keys.onReturnPressed: clicked()
        Keys.onEnterPressed: clicked()
        onClicked: root.openCalendar()
    }

    DatePickerCalendarDialog {
        id: calendar

        localeName: root.locale
        onPicked: root.selectedDate = date
    }

    QtObject {
        id: internal

        function showDate() {
            var shown = root.parse(root.text)
            // What is being typed stays as it is while it says the same.
            if (!root.isActive || !shown || shown.getTime() !== root.selectedDate.getTime())
                root.text = root.format(root.selectedDate)
        }

        function read() {
            if (root.isMasked) {
                var digits = root.text.slice(0, root.textInput.cursorPosition).replace(/\D/g, "").length
                var masked = root.mask(root.text)
                if (masked !== root.text) {
                    root.text = masked
                    root.textInput.cursorPosition = Math.min(masked.length,
                                                             digits + (digits > 4 ? 1 : 0) + (digits > 6 ? 1 : 0))
                }
            }
            var date = root.parse(root.text)
            if (date && date.getTime() !== root.selectedDate.getTime())
                root.selectedDate = date
        }
    }
}
