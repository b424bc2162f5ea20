// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import ActionSequenceBuilder 1.0
import ActionWrapper 1.0
import EnhancedMaterial 1.0 as EM
import Fluid.Controls 1.0 as FL
import ModelToArrayAdapter 1.0
import SortFilterProxyModel 0.2
import controls 1.0

// The control table: a row for each zone of a part, and above them a bar that drives all of them at once.
FocusScope {
    id: root

    property string partUid
    property var part: ({}) // the record of the part
    readonly property bool narrow: leftSidebar.mobileAspect
    readonly property bool small: narrow || width < 820

    function setMode(uid, manual) {
        var wrapper = manual ? manualMode : autoMode
        var sequence = manual ? manualSequence : autoSequence
        wrapper.zones = [uid]
        shopController.runActionSequence(sequence.toSequence())
    }

    function setPower(uid, percent) {
        power.zones = [uid]
        power.params = { "power": percent }
        shopController.runActionSequence(powerSequence.toSequence())
    }

    function takeZones() {
        brightness.selectedZones = zonesUids.array
    }

    implicitWidth: 640
    implicitHeight: 480
    Component.onCompleted: takeZones()

    SortFilterProxyModel {
        id: zonesModel

        sourceModel: zonesListModel
        filters: ValueFilter {
            roleName: "partUid"
            value: root.partUid
            enabled: root.partUid !== ""
        }
        sorters: StringSorter { roleName: "sort"; caseSensitivity: Qt.CaseInsensitive }
    }

    ModelToArrayAdapter {
        id: zonesUids

        model: zonesModel
        roles: ["uid"]
        // Told for each row that changes, and long: it is taken once when all of them have.
        onArrayChanged: Qt.callLater(root.takeZones)
    }

    ActionSequenceBuilder {
        id: autoSequence

        ActionWrapper {
            id: autoMode

            action: autoSequence.getStandardAction(ActionSequenceBuilder.SetAutoMode)
        }
    }

    ActionSequenceBuilder {
        id: manualSequence

        ActionWrapper {
            id: manualMode

            action: manualSequence.getStandardAction(ActionSequenceBuilder.SetManualMode)
        }
    }

    ActionSequenceBuilder {
        id: powerSequence

        ActionWrapper {
            id: power

            action: powerSequence.getStandardAction(ActionSequenceBuilder.SetPower)
        }
    }

    Rectangle {
        id: header

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        height: brightness.y + brightness.height
        color: "#313c43"

        QC2.Label {
            objectName: "partName"
            leftPadding: 16
            rightPadding: 16
            width: root.small ? parent.width : 200
            height: root.small ? (text === "" ? 0 : 40) : brightness.height
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
            maximumLineCount: root.small ? 1 : 2
            wrapMode: Text.Wrap
            textFormat: Text.PlainText
            font.pixelSize: 16
            font.weight: Font.Medium
            color: "white"
            text: root.part && root.part.name !== undefined ? root.part.name : ""

            Rectangle { // nothing of the bar's colours but a hair below the name
                anchors.bottom: parent.bottom
                width: parent.width
                height: root.small ? 1 : 0
                color: Qt.rgba(1, 1, 1, 0.12)
            }
        }

        BrightnessControl {
            id: brightness

            objectName: "partBrightness"
            x: root.small ? 0 : 200
            y: root.small ? (root.part && root.part.name ? 40 : 0) : 0
            width: Math.max(0, parent.width - x)
            height: small ? 120 : 70
            topPadding: 6
            bottomPadding: 6
            enabled: list.count > 0
        }
    }

    ListView {
        id: list

        objectName: "zonesControlList"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        focus: true
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        highlightMoveDuration: 100
        highlightMoveVelocity: -1
        model: zonesModel
        delegate: root.narrow ? narrowRow : wideRow
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Зоны")

        QC2.ScrollBar.vertical: QC2.ScrollBar {}

        EM.HardMouseScroll {
            flickable: list
        }
    }

    Component {
        id: wideRow

        WideDelegate {
            objectName: "zoneControl" + index
            name: model.name
            manual: model.manual
            power: model.power
            onModeRequested: root.setMode(model.uid, manual)
            onPowerRequested: root.setPower(model.uid, percent)
        }
    }

    Component {
        id: narrowRow

        NarrowDelegate {
            objectName: "zoneControl" + index
            name: model.name
            manual: model.manual
            power: model.power
            onModeRequested: root.setMode(model.uid, manual)
            onPowerRequested: root.setPower(model.uid, percent)
        }
    }

    PlaceholderControl {
        objectName: "noZones"
        anchors.fill: list
        visible: list.count === 0
        icon: "maps/map"
        title: qsTr("Объект пуст")
        button.visible: false
    }
}
