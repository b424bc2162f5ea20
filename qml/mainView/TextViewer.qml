// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import Fluid.Controls 1.0 as FL

// A long text that the program carries, by its lines, so that only what is in sight is laid out.
ListView {
    id: root

    property url source
    property var lines: []

    function load() {
        var request = new XMLHttpRequest()
        request.onreadystatechange = function() {
            if (request.readyState === XMLHttpRequest.DONE)
                root.lines = request.responseText.split("\n")
        }
        request.open("GET", source)
        request.send()
    }

    implicitWidth: 480
    implicitHeight: 320
    clip: true
    boundsBehavior: Flickable.StopAtBounds
    activeFocusOnTab: true
    model: lines
    Accessible.role: Accessible.StaticText
    Accessible.name: lines.join("\n").slice(0, 2000)
    onSourceChanged: {
        if (source != "")
            load()
    }
    Keys.onUpPressed: contentY = Math.max(originY, contentY - 48)
    Keys.onDownPressed: contentY = Math.min(Math.max(originY, originY + contentHeight - height), contentY + 48)
    delegate: FL.BodyLabel {
        width: ListView.view.width - 12
        wrapMode: Text.WordWrap
        text: modelData
    }

    QC2.ScrollBar.vertical: QC2.ScrollBar {}

    // Where the keyboard is.
    Rectangle {
        anchors.fill: parent
        visible: root.activeFocus
        color: "transparent"
        border.color: Material.accent
    }
}
