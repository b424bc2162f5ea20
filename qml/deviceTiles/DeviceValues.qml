// SPDX-License-Identifier: GPL-3.0-or-later
pragma Singleton
import QtQuick 2.15

// How cards read what devices report: any value may be missing, or be of any kind.
QtObject {
    readonly property string none: "—"

    // Not finite is as good as not there.
    function number(value, fallback) {
        var result = value === undefined || value === null || value === "" ? NaN : Number(value)
        return isFinite(result) ? result : fallback === undefined ? 0 : fallback
    }

    function has(value) {
        return isFinite(number(value, NaN))
    }

    // At most so many decimals, and no zeros at the end.
    function rounded(value, decimals) {
        return has(value) ? String(Number(number(value).toFixed(decimals))) : none
    }

    function element(list, index) {
        return list !== undefined && list !== null && list.length > index ? list[index] : undefined
    }

    // The text with the number of a unit that is easy to read.
    function time(pattern, seconds) {
        var value = Math.max(0, number(seconds))
        var unit = qsTr("с")
        if (value > 60) {
            value /= 60
            unit = qsTr("мин")
            if (value > 60) {
                value /= 60
                unit = qsTr("ч")
                if (value > 24) {
                    value /= 24
                    unit = qsTr("д")
                }
            }
        }
        return pattern.arg(Math.floor(value)).arg(unit)
    }

    // Since when a device that was asked at that interval of milliseconds has been silent.
    function silence(errors, pollingInterval) {
        return time(qsTr("Не отвечает: >%1 %2"), number(errors) * number(pollingInterval) / 1000)
    }

    function interval(milliseconds) {
        return has(milliseconds) ? qsTr("%1 с").arg(rounded(number(milliseconds) / 1000, 1)) : none
    }
}
