// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import deviceTiles 1.0

// Cards of devices in the states that a site shows seldom.
Sheet {
    id: root

    function device(kind, name, state, data) {
        return {
            uid: "{5f6c3a51-0000-4000-8000-000000000001}", address: 17, isRadioValid: true, radioString: "LoRa 1",
            radioType: 0, commonType: kind, state: state, data: data,
            typeInfo: { name: name, commonType: kind, state: [{ identificator: "power",
                                                                description: say("Мощность", "Power") }],
                        parameters: [{ identificator: "name", description: say("Название", "Name") }] }
        }
    }

    readonly property string longName: say("Опрашиваемый светильник с датчиком движения и освещённости",
                                           "Polled lamp with a sensor of movement and illuminance")
    readonly property var cards: [
        device("lamp", say("Светильник", "Lamp"), { power: 80, errors: 0, rssidBm: -50 }, { pollingInterval: 60000 }),
        device("lamp", longName, { power: 0, errors: 3, rssidBm: -90 }, { pollingInterval: 60000 }),
        Object.assign(device("lamp", longName, { power: 100, errors: 1, rssidBm: -70 }, {}), { isRadioValid: false }),
        device("polling_light_sensor", say("Датчик", "Sensor"), { brightness: 180.5, errors: 0, rssidBm: -60 },
               { pollingInterval: 60000, multiplier: 1.5 }),
        device("polling_light_sensor", say("Датчик", "Sensor"), { brightness: 0, errors: 40, rssidBm: -60 },
               { pollingInterval: 3600000, multiplier: 1.5 }),
        device("polling_temp_sensor", say("Датчик", "Sensor"), { temperature: -12.5, errors: 12, rssidBm: -60 },
               { pollingInterval: 60000 }),
        device("polling_contactor", say("Контактор", "Contactor"), { power: 100, errors: 0 },
               { contactorAddress: 3, switch1: true, switch2: true, switch9: true }),
        device("polling_rs_electric_meter", say("Счётчик", "Meter"), { state: "u", errors: 0 }, { pollingInterval: 60000 }),
        device("polling_rs_electric_meter", say("Счётчик", "Meter"),
               { state: "e", errors: 40, energy: 1234567.8, voltages: [229.7, 230.1, 231.5], amperages: [1.25, 12.5, 125],
                 powers: [230, 2300, 23000], cosines: [0.91, 0.92, 1] }, { pollingInterval: 60000 }),
        device("sensor_contact", say("Датчик контакта", "Contact sensor"), { input1: true, input2: false },
               { contactAddress: 5, input1: true, input2: true, input3: true }),
        device("beacon", say("Радиомаяк", "Beacon"), { active: false, inactiveTime: 7200, rssidBm: -95 },
               { name: longName }),
        device("lamp_group", say("Группа", "Group"), { power: 40 },
               { groupNumber: 4, addresses: [1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20] }),
        device("thermostat", say("Термостат", "Thermostat"), { power: 40 }, { name: longName })
    ]

    Flow {
        width: parent.width
        spacing: 16

        Repeater {
            model: root.cards.length

            DeviceTile {
                objectName: index === 0 ? "focusedCell" : ""
                width: 272
                height: 192
                model: root.cards[index]
            }
        }

        ContactorTile {
            model: root.device("contactor", root.say("Контактор", "Contactor"), { power: 100 }, { switchIndex: 7 })
        }

        ContactorTile {
            model: root.device("contactor", root.say("Контактор", "Contactor"), { power: 0 }, { switchIndex: 7 })
        }
    }
}
