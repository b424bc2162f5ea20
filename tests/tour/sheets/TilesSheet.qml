// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import tiles 1.0

// Tiles of the plan, by power and by size.
Sheet {
    id: root

    Repeater {
        model: [false, true]

        Flow {
            id: mode

            readonly property bool manual: modelData

            width: parent.width
            spacing: 8

            Repeater {
                model: [0, 20, 40, 60, 80, 100]

                ZoneTile {
                    width: 160
                    height: 128
                    name: root.say("Овощи и фрукты", "Fruit and vegetables")
                    powerPercent: modelData
                    manual: mode.manual
                    erroredDevicesCount: modelData === 60 ? 3 : 0
                }
            }

            Repeater {
                model: [{ w: 96, h: 96 }, { w: 160, h: 48 }, { w: 48, h: 160 }, { w: 48, h: 48 }, { w: 32, h: 32 },
                        { w: 256, h: 32 }]

                ZoneTile {
                    width: modelData.w
                    height: modelData.h
                    name: root.say("Холодильная камера", "Cold store")
                    powerPercent: 70
                    manual: mode.manual
                    erroredDevicesCount: 12
                }
            }
        }
    }

    Flow {
        width: parent.width
        spacing: 8

        Repeater {
            model: [{ w: 80, h: 80 }, { w: 160, h: 48 }, { w: 32, h: 32 }, { w: 128, h: 128 }]

            Row {
                spacing: 8

                ButtonTile {
                    width: modelData.w
                    height: modelData.h
                    name: root.say("Весь зал", "Whole hall")
                    onColor: "#ffb300"
                    offColor: "#5d4037"
                }

                ButtonTile {
                    width: modelData.w
                    height: modelData.h
                    name: root.say("Весь зал", "Whole hall")
                    active: true
                    onColor: "#ffb300"
                    offColor: "#5d4037"
                }
            }
        }
    }

    Flow {
        width: parent.width
        spacing: 8

        Repeater {
            model: 4

            IndicatorTile {
                width: 256
                height: 80
                text: root.say("Температура в зале 21 °C", "21 °C in the hall")
                iconName: index < 3 ? "places/ac_unit" : ""
                iconColor: "#1976d2"
                horizontalAlignment: index
                editable: index === 1
            }
        }

        IndicatorTile {
            width: 64
            height: 64
            iconName: "action/done"
            iconColor: "#4caf50"
        }

        IndicatorTile {
            width: 128
            height: 32
            text: root.say("Отказы", "Failures")
            iconName: "alert/error_outline"
            iconColor: "#b71c1c"
        }
    }
}
