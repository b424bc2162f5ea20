// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import Fluid.Controls 1.0 as FL
import controls 1.0

// What a row of the control table shows and asks for, whatever its shape: the name of a zone, a switch of its mode, its
// power as text and on a slider.
FocusScope {
    id: root

    property string name
    property bool manual: false
    property int power: 0
    readonly property real shownPower: Math.max(0, Math.min(100, power))
    property alias nameLabel: nameText
    property alias modeSwitch: autoSwitch
    property alias valueLabel: valueText
    property alias slider: powerSlider

    signal modeRequested(bool manual)
    signal powerRequested(int percent)

    // Back to what the server says.
    function restore() {
        autoSwitch.checked = Qt.binding(function() { return !root.manual })
        powerSlider.value = Qt.binding(function() { return root.shownPower })
    }

    width: ListView.view ? ListView.view.width : implicitWidth
    implicitWidth: 640
    onActiveFocusChanged: {
        if (activeFocus && ListView.view)
            ListView.view.currentIndex = index
    }

    // What was asked for stays on show until the server says more, but not for ever: it may refuse.
    Timer {
        id: patience

        interval: 5000
        onTriggered: root.restore()
    }

    QC2.Label {
        id: nameText

        objectName: "zoneName"
        elide: Text.ElideRight
        maximumLineCount: 1
        textFormat: Text.PlainText
        verticalAlignment: Text.AlignVCenter
        font.pixelSize: 16
        text: root.name.trim() === "" ? qsTr("Зона без названия") : root.name
    }

    OndiraSwitch {
        id: autoSwitch

        objectName: "autoModeSwitch"
        text: qsTr("Авто режим")
        checked: !root.manual
        Accessible.description: nameText.text
        onToggled: {
            patience.restart()
            root.modeRequested(!checked)
        }
    }

    QC2.Label {
        id: valueText

        objectName: "powerText"
        horizontalAlignment: Text.AlignRight
        verticalAlignment: Text.AlignVCenter
        font.pixelSize: 16
        color: root.manual ? Material.primaryTextColor : Material.secondaryTextColor
        text: qsTr("%1%").arg(powerSlider.currentValue)
    }

    OndiraBrightnessSlider {
        id: powerSlider

        objectName: "powerSlider"
        enabled: root.manual
        value: root.shownPower
        Accessible.description: nameText.text
        onValueChanged: {
            if (Math.round(value) !== root.shownPower) {
                patience.restart()
                root.powerRequested(Math.round(value))
            }
        }
    }

    FL.Divider {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
    }
}
