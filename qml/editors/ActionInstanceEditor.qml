// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQuick.Layouts 1.15
import ActionSequenceListModel 1.0
import Fluid.Controls 1.0 as FL
import Fluid.Core 1.0 as FLC
import controls 1.0

// The form of a sequence of actions: a card for each, with the parameters that its blueprint shows.
Column {
    id: root

    property var actions: []
    property bool showZoneSelector: false
    property int nested: 0 // how deep this form lies in others of its kind
    readonly property var editedActions: sequence.actionSequence
    readonly property bool hasErrors: internal.errors > 0
    readonly property alias count: cards.count
    readonly property color cardColor: nested >= 0 && nested < 12
                                       ? Material.color(internal.colors[nested % internal.colors.length],
                                                        Material.Shade100) : "white"

    // What is typed but not finished yet goes into the sequence.
    function commit() {
        for (var i = 0; i < cards.count; ++i)
            cards.itemAt(i).commit()
    }

    spacing: 8

    QtObject {
        id: internal

        readonly property var colors: [Material.Grey, Material.Yellow, Material.Green, Material.Blue, Material.Orange,
                                       Material.Red]
        property int errors: 0
    }

    ActionSequenceListModel {
        id: sequence

        blueprints: actionsListModel.blueprints
        actionSequence: root.actions
    }

    FL.BodyLabel {
        objectName: "noActions"
        width: parent.width
        visible: cards.count === 0
        color: Material.secondaryTextColor
        text: qsTr("Нет действий")
    }

    Repeater {
        id: cards

        model: sequence

        Rectangle {
            id: card

            readonly property int row: index
            readonly property string blueprint: model.blueprint
            readonly property var properties: model.properties
            readonly property var values: model.values
            readonly property var zones: model.zones || []

            function commit() {
                for (var i = 0; i < fields.count; ++i)
                    fields.itemAt(i).commit()
            }

            objectName: "actionCard" + index
            width: root.width
            height: content.height + 16
            radius: 4
            color: root.cardColor

            Column {
                id: content

                x: 12
                y: 8
                width: parent.width - 24
                spacing: 8

                RowLayout {
                    width: parent.width
                    spacing: 0

                    ItemPicker {
                        objectName: "actionPicker" + card.row
                        Layout.fillWidth: true
                        label: qsTr("Действие")
                        source: actionsListModel
                        sortRole: "sort"
                        isClearable: false
                        initialItem: card.blueprint
                        onItemSelected: sequence.setBlueprint(card.row, get(index).uid)
                    }

                    QC2.ToolButton {
                        objectName: "removeAction" + card.row
                        Layout.preferredWidth: FLC.Device.touchSize
                        Layout.preferredHeight: FLC.Device.touchSize
                        focusPolicy: Qt.StrongFocus
                        icon.source: FLC.Utils.iconUrl("navigation/close")
                        icon.color: Material.iconColor
                        Accessible.name: qsTr("Удалить действие")
                        Keys.onReturnPressed: clicked()
                        Keys.onEnterPressed: clicked()
                        onClicked: sequence.remove(card.row)
                    }
                }

                Repeater {
                    id: fields

                    model: card.properties

                    TileFieldBase {
                        readonly property var entry: card.values && card.values[index] ? card.values[index] : ({})
                        property bool isCounted: false

                        function count(isWrong) {
                            if (isWrong !== isCounted)
                                internal.errors += isWrong ? 1 : -1
                            isCounted = isWrong
                        }

                        objectName: "action" + card.row + "Parameter" + index
                        width: content.width
                        visible: hasEditor
                        type: modelData.type || ""
                        label: modelData.description || ""
                        definition: entry.definition
                        value: entry.value
                        displayValue: type === "list" ? "" : entry.displayValue || ""
                        typedElements: true
                        onValueEdited: sequence.setPropertyValue(card.row, modelData.name, value)
                        onHasErrorChanged: count(hasError)
                        Component.onDestruction: count(false)
                    }
                }

                ZonesTableView {
                    objectName: "actionZones" + card.row
                    width: parent.width
                    visible: root.showZoneSelector
                    caption: qsTr("Зоны действия")
                    model: root.showZoneSelector ? zonesListModel : null
                    selectedUids: card.zones
                    onEdited: sequence.setZones(card.row, uids)
                }
            }
        }
    }

    OndiraButton {
        objectName: "addAction"
        flat: true
        highlighted: true
        iconName: "content/add"
        text: qsTr("Добавить")
        onClicked: sequence.add()
    }
}
