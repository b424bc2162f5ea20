// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import EnhancedMaterial 1.0 as EM

// What opens above a page to pick a date or a time.
Sheet {
    id: root

    function showCalendar() {
        calendar.pick(new Date(2024, 1, 29))
    }

    function showDial() {
        calendar.close()
        dial.pick(new Date(2024, 1, 29, 21, 41, 0))
    }

    EM.DatePickerCalendarDialog {
        id: calendar

        localeName: root.say("ru_RU", "en_GB")
    }

    EM.TimePickerDialog {
        id: dial
    }
}
