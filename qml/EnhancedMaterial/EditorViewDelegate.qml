// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import Fluid.Controls 1.0 as FL

// A row of an editor's list: a click shows its page.
FL.ListItem {
    id: root

    readonly property Item editor: ListView.view && ListView.view.editor ? ListView.view.editor : null

    width: ListView.view ? ListView.view.width : implicitWidth
    highlighted: editor !== null && editor.currentIndex === index
    Accessible.selected: highlighted
    onClicked: {
        if (editor)
            editor.select(index)
    }
}
