// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import EnhancedMaterial 1.0 as EM
import Fluid.Controls 1.0 as FL
import controls 1.0
import mainView 1.0

// What is pressed, switched, slid and chosen.
Sheet {
    id: root

    readonly property string label: say("Сохранить", "Save")
    readonly property string longLabel: say("Сохранить дневное расписание всего торгового центра",
                                            "Save the daily schedule of the whole shopping centre")

    SheetRow {
        name: "OndiraButton"
        isStretched: false
        control: OndiraButton { text: root.label }
        states: ({ highlighted: { highlighted: true }, longText: { text: root.longLabel } })
    }

    SheetRow {
        name: "OndiraButton, icon"
        isStretched: false
        control: OndiraButton { text: root.label; iconName: "content/add"; flat: true; highlighted: true }
        states: ({ filled: { flat: false }, longText: { text: root.longLabel } })
    }

    SheetRow {
        name: "OndiraSwitch"
        isStretched: false
        control: OndiraSwitch { text: root.label }
        states: ({ checked: { checked: true }, longText: { text: root.longLabel, checked: true } })
    }

    SheetRow {
        name: "OndiraSwitchButton"
        control: OndiraSwitchButton { text: root.label; subText: root.say("Для всех зон", "For all zones") }
        states: ({ checked: { checked: true }, longText: { text: root.longLabel, subText: root.longLabel } })
    }

    SheetRow {
        name: "CheckableIconButton"
        isStretched: false
        control: CheckableIconButton { text: root.label; iconName: "action/lock_open"; checkedIconName: "action/lock" }
        states: ({ checked: { checked: true } })
    }

    SheetRow {
        name: "HelpTipButton"
        isStretched: false
        control: HelpTipButton { tip: root.longLabel }
    }

    SheetRow {
        name: "DropdownButton"
        isStretched: false
        control: DropdownButton { text: root.label }
        states: ({ longText: { text: root.longLabel } })
    }

    SheetRow {
        name: "ExtendedFAB"
        isStretched: false
        control: EM.ExtendedFAB { text: root.label; icon.source: "qrc:/icons/material/content/add.svg" }
        states: ({ extended: { extended: true }, longText: { extended: true, mini: true, text: root.longLabel } })
    }

    SheetRow {
        name: "FloatingButton"
        isStretched: false
        control: EM.FloatingButton { text: root.label; mini: true; icon.source: "qrc:/icons/material/content/add.svg" }
        states: ({ extended: { extended: true } })
    }

    SheetRow {
        name: "CheckBox"
        isStretched: false
        control: QC2.CheckBox { text: root.label }
        states: ({ checked: { checked: true } })
    }

    SheetRow {
        name: "OndiraBrightnessSlider"
        control: OndiraBrightnessSlider { value: 60 }
        states: ({ off: { value: 0 }, full: { value: 100 } })
    }

    SheetRow {
        name: "ScaleSlider"
        isFocusable: false
        isStretched: false
        control: ScaleSlider { value: 0.7 }
        states: ({ locked: { locked: true }, least: { value: 0.1 } })
    }

    SheetRow {
        name: "BrightnessControl"
        isFocusable: false
        control: BrightnessControl { selectedZones: [] }
    }

    SheetRow {
        name: "TabBar"
        control: EM.TabBar {
            EM.TabButton { text: root.say("Зоны", "Zones") }
            EM.TabButton { text: root.say("Кнопки", "Buttons"); removable: true }
        }
        states: ({ scrolling: { fixed: false } })
    }

    SheetRow {
        name: "ListItem"
        control: FL.ListItem { text: root.label; iconName: "content/save" }
        states: ({ highlighted: { highlighted: true, subText: root.longLabel, maximumLineCount: 2 },
                   longText: { text: root.longLabel, subText: root.longLabel, valueText: "100 %" } })
    }

    SheetRow {
        name: "EditorViewDelegate"
        control: EM.EditorViewDelegate { text: root.label }
        states: ({ highlighted: { highlighted: true }, longText: { text: root.longLabel } })
    }

    SheetRow {
        name: "ConnectionDisplayButton"
        control: ConnectionDisplayButton { title: root.label }
        states: ({ longText: { title: root.longLabel } })
    }

    SheetRow {
        name: "Placeholder"
        isFocusable: false
        control: FL.Placeholder { height: 160; icon: "maps/map"; text: root.label; subText: root.longLabel }
    }
}
