// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15

// Those of its actions that are visible now, in their order, for a page that shows no others.
QtObject {
    id: root

    default property list<QtObject> actions
    property var visibleActions: []
    property var watched: []

    function rebuild() {
        var shown = []
        for (var i = 0; i < actions.length; ++i) {
            if (actions[i] && actions[i].visible)
                shown.push(actions[i])
        }
        // The same list again would make every button anew.
        var isSame = shown.length === visibleActions.length
                     && shown.every(function(action, row) { return action === visibleActions[row] })
        if (!isSame)
            visibleActions = shown
    }

    function watch() {
        for (var i = 0; i < actions.length; ++i) {
            if (actions[i] && actions[i].visibleChanged && watched.indexOf(actions[i]) < 0) {
                actions[i].visibleChanged.connect(rebuild)
                watched.push(actions[i])
            }
        }
        rebuild()
    }

    onActionsChanged: watch()
    Component.onCompleted: watch()
}
