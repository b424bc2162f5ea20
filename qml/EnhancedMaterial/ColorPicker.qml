// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import Fluid.Core 1.0 as FLC

// A colour of the Material palette in two steps: its hue, then the shade of it.
FocusScope {
    id: root

    property int selectedColor: Material.Red
    property int selectedShade: Material.Shade500
    readonly property color shadedColor: Material.color(selectedColor, selectedShade)
    property bool isChoosingShade: false

    signal picked(color color) // both steps are done

    // Back to the first step.
    function restart() {
        isChoosingShade = false
        grid.currentIndex = Math.max(0, internal.colors.indexOf(selectedColor))
    }

    implicitWidth: 5 * 48
    implicitHeight: 4 * 48
    Component.onCompleted: restart()

    QtObject {
        id: internal

        readonly property var colors: [
            Material.Red, Material.Pink, Material.Purple, Material.DeepPurple, Material.Indigo, Material.Blue,
            Material.LightBlue, Material.Cyan, Material.Teal, Material.Green, Material.LightGreen, Material.Lime,
            Material.Yellow, Material.Amber, Material.Orange, Material.DeepOrange, Material.Brown, Material.Grey,
            Material.BlueGrey]
        readonly property var names: [
            qsTr("Красный"), qsTr("Розовый"), qsTr("Фиолетовый"), qsTr("Тёмно-фиолетовый"), qsTr("Индиго"),
            qsTr("Синий"), qsTr("Голубой"), qsTr("Бирюзовый"), qsTr("Сине-зелёный"), qsTr("Зелёный"),
            qsTr("Светло-зелёный"), qsTr("Лаймовый"), qsTr("Жёлтый"), qsTr("Янтарный"), qsTr("Оранжевый"),
            qsTr("Тёмно-оранжевый"), qsTr("Коричневый"), qsTr("Серый"), qsTr("Серо-синий")]
        readonly property var shades: [
            Material.Shade50, Material.Shade100, Material.Shade200, Material.Shade300, Material.Shade400,
            Material.Shade500, Material.Shade600, Material.Shade700, Material.Shade800, Material.Shade900,
            Material.ShadeA100, Material.ShadeA200, Material.ShadeA400, Material.ShadeA700]
        readonly property var shadeNames: ["50", "100", "200", "300", "400", "500", "600", "700", "800", "900", "A100",
                                           "A200", "A400", "A700"]

        function choose(index) {
            if (!root.isChoosingShade) {
                root.selectedColor = colors[index]
                root.isChoosingShade = true
                grid.currentIndex = Math.max(0, shades.indexOf(root.selectedShade))
            } else {
                root.selectedShade = shades[index]
                root.picked(root.shadedColor)
            }
        }
    }

    GridView {
        id: grid

        objectName: "colors"
        anchors.fill: parent
        focus: true
        activeFocusOnTab: true
        keyNavigationEnabled: true
        cellWidth: Math.max(1, width / 5)
        cellHeight: 48
        interactive: contentHeight > height
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        model: root.isChoosingShade ? internal.shades.length : internal.colors.length
        Accessible.role: Accessible.List
        Accessible.name: root.isChoosingShade ? qsTr("Оттенки") : qsTr("Цвета")
        Keys.onReturnPressed: internal.choose(currentIndex)
        Keys.onEnterPressed: internal.choose(currentIndex)
        Keys.onSpacePressed: internal.choose(currentIndex)
        Keys.onPressed: {
            event.accepted = root.isChoosingShade && (event.key === Qt.Key_Backspace || event.key === Qt.Key_Back)
            if (event.accepted)
                root.restart()
        }

        delegate: QC2.AbstractButton {
            id: cell

            readonly property color value: root.isChoosingShade
                                           ? Material.color(root.selectedColor, internal.shades[index] || 0)
                                           : Material.color(internal.colors[index] || 0)
            readonly property bool isSelected: root.isChoosingShade
                                               ? internal.shades[index] === root.selectedShade
                                               : internal.colors[index] === root.selectedColor

            objectName: "color" + index
            width: GridView.view.cellWidth
            height: GridView.view.cellHeight
            focusPolicy: Qt.NoFocus
            Accessible.name: (root.isChoosingShade ? internal.shadeNames[index] : internal.names[index]) || ""
            onClicked: {
                grid.currentIndex = index
                internal.choose(index)
            }

            background: Item {
                Rectangle {
                    anchors.centerIn: parent
                    width: 36
                    height: 36
                    radius: 18
                    color: cell.value
                    border.width: grid.activeFocus && cell.GridView.isCurrentItem ? 3 : 1
                    border.color: grid.activeFocus && cell.GridView.isCurrentItem ? Material.primaryTextColor
                                                                                  : "#40808080"
                }
            }

            contentItem: Item {
                Rectangle { // a dot tells what is selected, on whatever colour
                    anchors.centerIn: parent
                    width: 10
                    height: 10
                    radius: 5
                    visible: cell.isSelected
                    color: FLC.Color.isDarkColor(cell.value) ? "white" : "black"
                }
            }
        }
    }
}
