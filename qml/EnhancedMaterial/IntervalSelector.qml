// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQml 2.15
import QtQuick.Layouts 1.15

// A span of time: a number, and whether it is of minutes, hours or days.
FocusScope {
    id: root

    property alias label: numberField.label
    property alias value: numberField.value
    property int savedIndex: 0 // of the unit; the menu's own would not outlive another list of words
    readonly property alias hasError: numberField.hasError
    readonly property int multiplier: [1, 60, 1440][savedIndex]
    readonly property real intervalMinutes: value * multiplier

    signal intervalModified() // by the user

    function setInterval(minutes) {
        var whole = Math.max(0, Math.round(Number(minutes)))
        if (!isFinite(whole))
            whole = 0
        savedIndex = whole % 1440 === 0 ? 2 : whole % 60 === 0 ? 1 : 0
        value = whole / multiplier
    }

    // The word of the unit beside that number. Other languages than Russian tell 1 from 21.
    function l10nFunction(value, unit) {
        var count = value > 100 ? value % 100 : value
        if (count > 20)
            count %= 10
        if (value === 1)
            return [qsTr("Минута", "1"), qsTr("Час", "1"), qsTr("День", "1")][unit]
        if (count === 1)
            return [qsTr("Минута", "21"), qsTr("Час", "21"), qsTr("День", "21")][unit]
        if (count >= 2 && count <= 4)
            return [qsTr("Минуты"), qsTr("Часа"), qsTr("Дня")][unit]
        return [qsTr("Минут"), qsTr("Часов"), qsTr("Дней")][unit]
    }

    implicitWidth: 280
    implicitHeight: content.implicitHeight

    RowLayout {
        id: content

        width: parent.width
        spacing: 16

        OndiraSpinbox {
            id: numberField

            objectName: "intervalNumber"
            Layout.fillWidth: true
            Layout.minimumWidth: 64
            Layout.alignment: Qt.AlignTop
            focus: true
            minimumValue: 0
            onValueModified: root.intervalModified()
        }

        MaterialMenuField {
            id: unitMenu

            objectName: "intervalUnit"
            Layout.preferredWidth: 120
            Layout.alignment: Qt.AlignTop
            // As high as the number, whose label and error take room.
            Layout.topMargin: Math.max(0, numberField.boxHeight - boxHeight)
            model: [0, 1, 2].map(unit => root.l10nFunction(root.value, unit))
            onModelChanged: selectedIndex = root.savedIndex
            onItemSelected: {
                root.savedIndex = index
                root.intervalModified()
            }

            Binding {
                target: unitMenu
                property: "selectedIndex"
                value: root.savedIndex
                restoreMode: Binding.RestoreNone
            }
        }
    }
}
