// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQuick.Layouts 1.15
import ActionSequenceBuilder 1.0
import ActionWrapper 1.0
import colors 1.0

// The bar that drives the selected zones: to automatic, or by hand to one of six brightnesses.
QC2.Pane {
    id: root

    property var selectedZones: []
    readonly property bool small: width < 600

    signal commandSent()

    function setAuto() {
        autoMode.zones = selectedZones
        shopController.runActionSequence(autoSequence.toSequence())
        commandSent()
    }

    function setPower(percent) {
        manualMode.zones = selectedZones
        power.zones = selectedZones
        power.params = { "power": percent }
        shopController.runActionSequence(powerSequence.toSequence())
        commandSent()
    }

    implicitWidth: 320
    implicitHeight: small ? 110 : 86
    padding: small ? 6 : 16
    Material.theme: Material.Dark
    Material.background: "#313c43"

    ActionSequenceBuilder {
        id: autoSequence

        ActionWrapper {
            id: autoMode

            action: autoSequence.getStandardAction(ActionSequenceBuilder.SetAutoMode)
        }
    }

    ActionSequenceBuilder {
        id: powerSequence

        ActionWrapper {
            id: manualMode

            action: powerSequence.getStandardAction(ActionSequenceBuilder.SetManualMode)
        }

        ActionWrapper {
            id: power

            action: powerSequence.getStandardAction(ActionSequenceBuilder.SetPower)
        }
    }

    contentItem: GridLayout {
        columns: root.small ? 1 : 2
        columnSpacing: 16
        rowSpacing: 0

        QC2.Button {
            objectName: "autoModeButton"
            Layout.fillWidth: root.small
            Layout.preferredHeight: 48
            Layout.alignment: Qt.AlignVCenter
            focus: true
            leftPadding: 16
            rightPadding: 16
            highlighted: true
            text: qsTr("Авто режим")
            Keys.onReturnPressed: clicked()
            Keys.onEnterPressed: clicked()
            onClicked: root.setAuto()
        }

        RowLayout {
            Layout.fillWidth: true
            Layout.alignment: Qt.AlignVCenter
            spacing: root.small ? 4 : 8

            Repeater {
                model: [0, 20, 40, 60, 80, 100]

                QC2.Button {
                    objectName: "powerButton" + modelData
                    Layout.fillWidth: true
                    Layout.minimumWidth: 40
                    Layout.preferredWidth: 96
                    Layout.preferredHeight: 48
                    leftPadding: 0
                    rightPadding: 0
                    Material.background: Colors.brightnessToColor(modelData)
                    Material.foreground: modelData >= 1 && modelData < 40 ? "white" : "#313c43"
                    text: qsTr("%1%").arg(modelData)
                    Accessible.name: qsTr("Яркость %1%").arg(modelData)
                    Keys.onReturnPressed: clicked()
                    Keys.onEnterPressed: clicked()
                    onClicked: root.setPower(modelData)
                }
            }
        }
    }
}
