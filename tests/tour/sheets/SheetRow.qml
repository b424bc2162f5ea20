// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls.Material 2.15
import Fluid.Controls 1.0 as FL

// One control in its states, side by side, or one above the other where the sheet is narrow. A state is a map of
// properties beside those of the control; without a map there is none of that state.
Column {
    id: root

    property string name
    property Component control
    property var states: ({}) // the maps by the names of the states, "enabled", "disabled" and "focused" being there anyway
    property bool isFocusable: true
    property bool isStretched: true // the control takes the width of its cell
    readonly property var all: {
        var maps = { enabled: {}, disabled: { enabled: false } }
        if (isFocusable)
            maps.focused = {}
        return Object.assign(maps, root.states)
    }

    width: parent ? parent.width : 0
    spacing: 4

    FL.CaptionLabel {
        color: Material.secondaryTextColor
        text: root.name
    }

    Grid {
        id: grid

        width: root.width
        columns: root.width < 900 ? 1 : 5
        columnSpacing: 24
        rowSpacing: 8

        Repeater {
            model: Object.keys(root.all)

            // In the frame there is room for what the control shows around itself when it has the keyboard.
            Item {
                objectName: modelData === "focused" ? "focusedCell" : ""
                implicitWidth: (grid.width - (grid.columns - 1) * grid.columnSpacing) / grid.columns
                implicitHeight: loader.height + 8

                onWidthChanged: Qt.callLater(loader.fit)

                Loader {
                    id: loader

                    // What a control asks for may depend on what it gets: it is asked once for each width of the cell.
                    function fit() {
                        width = undefined
                        width = root.isStretched ? parent.width - 8 : Math.min(parent.width - 8, item.implicitWidth)
                    }

                    x: 4
                    y: 4
                    sourceComponent: root.control
                    onLoaded: {
                        var properties = root.all[modelData]
                        for (var name in properties)
                            item[name] = properties[name]
                        Qt.callLater(fit)
                    }
                }
            }
        }
    }
}
