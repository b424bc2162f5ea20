// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import Fluid.Core 1.0 as FLC

// A field for a time of day, of which only the hours must be typed; a button opens the dial. A text that is no time does
// not reach the selected time, and gives way to it when the field loses the focus.
TextField {
    id: root

    property string timeFormat: "HH:mm:ss"
    property date selectedTime

    // The time that a text says, on the day of the selected one, or null.
    function parse(text) {
        var parts = /(\d{1,2})(?:\D*(\d{1,2}))?(?:\D*(\d{1,2}))?/.exec(text)
        if (!parts)
            return null
        var hours = Number(parts[1])
        var minutes = Number(parts[2] || 0)
        var seconds = Number(parts[3] || 0)
        if (hours > 23 || minutes > 59 || seconds > 59)
            return null
        var time = isNaN(selectedTime) ? new Date() : new Date(selectedTime.getTime())
        time.setHours(hours, minutes, seconds, 0)
        return time
    }

    function format(time) {
        return isNaN(time) ? "" : Qt.formatTime(time, timeFormat)
    }

    function openDial() {
        dial.pick(selectedTime)
    }

    hasError: text !== "" && parse(text) === null
    errorText: qsTr("Нет такого времени")
    inputMethodHints: Qt.ImhPreferNumbers
    onSelectedTimeChanged: internal.showTime()
    onTimeFormatChanged: internal.showTime()
    onTextEdited: internal.read()
    onAccepted: internal.tidy()
    onIsActiveChanged: if (!isActive) internal.tidy()
    Component.onCompleted: internal.tidy()
    Keys.onPressed: {
        event.accepted = event.key === Qt.Key_Down && event.modifiers & Qt.AltModifier
        if (event.accepted)
            openDial()
    }

    trailing: QC2.ToolButton {
        objectName: "dialButton"
        width: FLC.Device.touchSize
        height: FLC.Device.touchSize
        enabled: !root.readOnly
        focusPolicy: Qt.StrongFocus
        icon.source: FLC.Utils.iconUrl("device/access_time")
        icon.color: enabled ? Material.secondaryTextColor : Material.hintTextColor
        Accessible.name: qsTr("Открыть циферблат")
        Keys.onReturnPressed: clicked()
        Keys.onEnterPressed: clicked()
        onClicked: root.openDial()
    }

    TimePickerDialog {
        id: dial

        onPicked: root.selectedTime = time
    }

    QtObject {
        id: internal

        // What is being typed stays as it is while it says the same.
        function showTime() {
            var typed = root.parse(root.text)
            if (!root.isActive || !typed || root.format(typed) !== root.format(root.selectedTime))
                tidy()
        }

        function tidy() {
            root.text = root.format(root.selectedTime)
        }

        function read() {
            var time = root.parse(root.text)
            if (time)
                root.selectedTime = time
        }
    }
}
