// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import colors 1.0

// A meter of three phases.
DeviceDelegateTile {
    id: root

    readonly property bool isSilent: errors >= 10
    readonly property var powers: deviceState.powers
    readonly property string powerText: {
        if (!powers || !(powers.length > 0))
            return qsTr("N/A")
        var sum = 0
        for (var i = 0; i < Math.min(3, powers.length); ++i)
            sum += DeviceValues.number(powers[i])
        return qsTr("%1 Вт").arg(DeviceValues.rounded(sum, 1))
    }
    readonly property string stepText: {
        switch (deviceState.state) {
        case "init": return qsTr("Соединение")
        case "u": return qsTr("Получение U")
        case "i": return qsTr("Получение I")
        case "p": return qsTr("Получение P")
        case "c": return qsTr("Получение cos")
        case "e": return qsTr("Получение E")
        case "":
        case undefined:
        case null: return qsTr("Ожидание")
        }
        return String(deviceState.state)
    }

    function phases(list, divisor, decimals) {
        return [0, 1, 2].map(function(phase) {
            var value = DeviceValues.element(list, phase)
            return DeviceValues.has(value) ? DeviceValues.rounded(DeviceValues.number(value) / divisor, decimals)
                                           : DeviceValues.none
        })
    }

    iconName: "action/assessment"
    circleColor: isSilent ? Colors.red : Colors.blue

    QC2.Label {
        objectName: "meterPower"
        width: parent.width / 2
        elide: Text.ElideRight
        textFormat: Text.PlainText
        font.pixelSize: 14
        text: root.powerText
    }

    QC2.Label {
        objectName: "meterEnergy"
        x: parent.width / 2
        width: parent.width / 2
        horizontalAlignment: Text.AlignRight
        elide: Text.ElideRight
        textFormat: Text.PlainText
        font.pixelSize: 14
        text: qsTr("%1 кВт-ч").arg(DeviceValues.has(root.deviceState.energy)
                                   ? Math.floor(DeviceValues.number(root.deviceState.energy)) : DeviceValues.none)
    }

    Column {
        y: 20
        width: parent.width

        Repeater {
            model: [
                [qsTr("V, В")].concat(root.phases(root.deviceState.voltages, 1, 1)),
                [qsTr("I, А")].concat(root.phases(root.deviceState.amperages, 1, 2)),
                [qsTr("P, кВт")].concat(root.phases(root.powers, 1000, 2)),
                [qsTr("cosϕ")].concat(root.phases(root.deviceState.cosines, 1, 2))
            ]

            Row {
                readonly property var cells: modelData

                objectName: "meterRow" + index

                Repeater {
                    model: parent.cells

                    TileText {
                        width: root.width / 4 - 8
                        height: 16
                        horizontalAlignment: index === 0 ? Text.AlignLeft : Text.AlignRight
                        color: index === 0 ? Material.secondaryTextColor : Material.primaryTextColor
                        text: modelData
                    }
                }
            }
        }
    }

    TileText {
        objectName: "answerText"
        y: 90
        width: parent.width
        color: root.isSilent ? Colors.red : Material.secondaryTextColor
        text: root.isSilent ? root.silenceText : root.stepText
    }
}
