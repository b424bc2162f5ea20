// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15

// A device of a kind that has no card of its own: all that it reports, and all that it was told.
DeviceDelegateTile {
    id: root

    readonly property var states: typeInfo.state || []
    readonly property var parameters: typeInfo.parameters || []

    function valueText(row) {
        var isState = row < states.length
        var entry = isState ? states[row] : parameters[row - states.length]
        var value = entry ? (isState ? deviceState : deviceData)[entry.identificator] : undefined
        var text = value === undefined ? "" : JSON.stringify(value)
        return text === undefined ? "" : text.substring(0, 200)
    }

    function descriptionText(row) {
        var entry = row < states.length ? states[row] : parameters[row - states.length]
        return entry ? String(entry.description || entry.identificator || "") : ""
    }

    iconName: "action/help_outline"

    ListView {
        id: list

        objectName: "valuesList"
        anchors.fill: parent
        clip: true
        interactive: contentHeight > height
        boundsBehavior: Flickable.StopAtBounds
        model: root.states.length + root.parameters.length
        delegate: Row {
            width: list.width
            height: 20

            TileText {
                objectName: "description" + index
                width: parent.width / 2
                text: root.descriptionText(index)
            }

            TileText {
                objectName: "value" + index
                width: parent.width / 2
                color: Material.primaryTextColor
                text: root.valueText(index)
            }
        }

        QC2.ScrollBar.vertical: QC2.ScrollBar {}
    }
}
