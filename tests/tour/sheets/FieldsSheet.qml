// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import EnhancedMaterial 1.0 as EM
import controls 1.0
import editors 1.0

// Fields of forms.
Sheet {
    id: root

    readonly property string label: say("Название", "Name")
    readonly property string longLabel: say("Название дневного расписания всего торгового центра с парковкой",
                                            "Name of the daily schedule of the whole shopping centre with its car park")
    readonly property string error: say("Такое название уже есть, выберите другое",
                                        "There is such a name already, choose another one")
    readonly property var words: [say("Первый", "First"), say("Второй", "Second"), longLabel]

    SheetRow {
        name: "TextField"
        control: EM.TextField { label: root.label; text: root.say("Зал", "Hall") }
        states: ({ error: { hasError: true, errorText: root.error }, longText: { label: root.longLabel, text: root.error } })
    }

    SheetRow {
        name: "TextField, empty"
        control: EM.TextField { label: root.label; placeholderText: root.say("Например, зал", "For example, hall") }
        states: ({ error: { hasError: true, errorText: root.error },
                   longText: { label: root.longLabel, helperText: root.longLabel } })
    }

    SheetRow {
        name: "TextField, password"
        control: EM.TextField { label: root.say("Пароль", "Password"); echoMode: TextInput.Password; text: "12345678" }
        states: ({ error: { hasError: true, errorText: root.error } })
    }

    SheetRow {
        name: "TextField, limit"
        control: EM.TextField { label: root.label; characterLimit: 10; text: root.say("Зал", "Hall") }
        states: ({ error: { text: root.error }, longText: { errorText: root.error, text: root.error } })
    }

    SheetRow {
        name: "MultilineTextField"
        control: EM.MultilineTextField { label: root.label; text: root.say("Первая строка\nВторая", "First line\nSecond") }
        states: ({ error: { hasError: true, errorText: root.error }, longText: { label: root.longLabel, text: root.error } })
    }

    SheetRow {
        name: "Spinbox"
        control: EM.Spinbox { label: root.say("Мощность, %", "Power, %"); value: 60; minimumValue: 0; maximumValue: 100 }
        states: ({ error: { value: 900 }, longText: { label: root.longLabel } })
    }

    SheetRow {
        name: "MenuField"
        control: EM.MenuField { label: root.label; model: root.words }
        states: ({ error: { hasError: true, errorText: root.error }, longText: { label: root.longLabel, selectedIndex: 2 } })
    }

    SheetRow {
        name: "MenuFieldWithSearch"
        control: EM.MenuFieldWithSearch { label: root.label; model: root.words; selectedIndex: -1 }
        states: ({ error: { hasError: true, errorText: root.error }, longText: { label: root.longLabel, isClearable: true,
                                                                                selectedIndex: 2 } })
    }

    SheetRow {
        name: "ItemPicker"
        control: ItemPicker { label: root.label; source: schedulesListModel }
    }

    SheetRow {
        name: "SearchField"
        control: EM.SearchField {}
        states: ({ filled: { text: root.label }, longText: { text: root.longLabel } })
    }

    SheetRow {
        name: "IntervalSelector"
        control: EM.IntervalSelector {
            label: root.say("Интервал", "Interval")
            Component.onCompleted: setInterval(120)
        }
    }

    SheetRow {
        name: "DatePicker"
        control: EM.DatePicker {
            label: root.say("Дата", "Date")
            locale: root.say("ru_RU", "en_GB")
            selectedDate: new Date(2024, 1, 29)
        }
        states: ({ error: { hasError: true, errorText: root.error } })
    }

    SheetRow {
        name: "TimePicker"
        control: EM.TimePicker { label: root.say("Время", "Time"); selectedTime: new Date(2024, 1, 29, 9, 41, 0) }
        states: ({ error: { hasError: true, errorText: root.error } })
    }

    SheetRow {
        name: "TileFieldBool"
        control: TileFieldBool { label: root.label; value: true }
        states: ({ longText: { label: root.longLabel, value: false } })
    }

    SheetRow {
        name: "TileFieldEnum"
        control: TileFieldEnum { label: root.label; canEditItems: true; definition: ({ items: root.words, editable: true }) }
    }

    SheetRow {
        name: "TileFieldList"
        control: TileFieldList { label: root.label; value: [1, 2, 3]; definition: ({ listType: "integer" }) }
        states: ({ error: { definition: { listType: "integer", minLength: 5 } } })
    }

    SheetRow {
        name: "TileFieldEntity"
        control: TileFieldEntity { label: root.label; definition: ({ entityType: "device" }) }
    }

    SheetRow {
        name: "TileFieldDefault"
        isFocusable: false
        control: TileFieldDefault { label: root.label; value: ({ a: 1 }) }
    }

    SheetRow {
        name: "ColorField"
        control: ColorField { text: root.label; value: "#00a74b" }
        states: ({ longText: { text: root.longLabel, value: "white" } })
    }

    SheetRow {
        name: "ZonesTableView"
        control: ZonesTableView {
            caption: root.label
            model: schedulesListModel
            maximumRows: 3
        }
        states: ({ longText: { caption: root.longLabel } })
    }
}
