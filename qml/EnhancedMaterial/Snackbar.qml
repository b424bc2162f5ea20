// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import Fluid.Controls 1.0 as FL

// Short messages at the bottom of the window, one after the other; each may offer one action.
QC2.Popup {
    id: root

    readonly property int queueLength: internal.count // with the message that shows

    // The callback is called where the button is pressed, which also ends the message.
    function open(text, timeout, buttonText, callback, yOffset) {
        internal.queue.push({
            text: text === undefined || text === null ? "" : String(text),
            timeout: timeout > 0 ? Math.min(Number(timeout), 0x7fffffff) : 4000,
            buttonText: buttonText ? String(buttonText) : "",
            callback: typeof callback === "function" ? callback : null,
            yOffset: isFinite(yOffset) && yOffset !== null ? Number(yOffset) : 16
        })
        internal.count = internal.queue.length
        internal.showHead()
    }

    parent: QC2.Overlay.overlay
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? parent.height - height - internal.yOffset : 0
    width: parent ? Math.max(0, Math.min(parent.width - 32, 568, Math.max(288, implicitWidth))) : implicitWidth
    height: internal.isButtonBelow ? 48 + action.height : label.lineCount > 1 ? 68 : 48
    padding: 0
    modal: false
    focus: false
    closePolicy: QC2.Popup.NoAutoClose
    Material.theme: Material.Dark
    Material.elevation: 6
    onClosed: internal.dropHead()

    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: 140 }
        NumberAnimation { property: "scale"; from: 0.9; to: 1; duration: 140 }
    }

    exit: Transition {
        NumberAnimation { property: "opacity"; from: 1; to: 0; duration: 100 }
    }

    background: Rectangle {
        radius: 4
        color: "#323232"
    }

    contentItem: Item {
        implicitWidth: metrics.width + 33
                       + (action.visible && !internal.isButtonBelow ? action.implicitWidth + 8 : 0)
        Accessible.role: Accessible.AlertMessage
        Accessible.name: label.text

        TextMetrics {
            id: metrics

            font: label.font
            text: internal.text
        }

        FL.BodyLabel {
            id: label

            objectName: "snackbarText"
            x: 16
            width: root.width - 32 - (action.visible && !internal.isButtonBelow ? action.width - 8 : 0)
            height: internal.isButtonBelow ? 48 : root.height
            verticalAlignment: Text.AlignVCenter
            color: Material.primaryTextColor
            elide: Text.ElideRight
            maximumLineCount: 2
            wrapMode: Text.Wrap
            textFormat: Text.PlainText
            text: internal.text
        }

        QC2.Button {
            id: action

            objectName: "snackbarButton"
            x: root.width - width - 8
            y: internal.isButtonBelow ? 44 : Math.round((root.height - height) / 2)
            width: Math.min(implicitWidth, root.width - 16)
            height: 48
            visible: text !== ""
            flat: true
            focusPolicy: Qt.StrongFocus
            Material.foreground: Material.accent
            text: internal.buttonText
            Accessible.name: text
            Keys.onReturnPressed: clicked()
            Keys.onEnterPressed: clicked()
            onClicked: internal.act()
        }
    }

    Timer {
        id: timeoutTimer

        onTriggered: root.close()
    }

    Timer {
        id: pauseTimer

        interval: 120
        onTriggered: internal.showHead()
    }

    QtObject {
        id: internal

        property var queue: []
        property int count: 0
        property string text
        property string buttonText
        property real yOffset: 16
        // A wide button would leave too little of the line to the text.
        readonly property bool isButtonBelow: action.visible && action.implicitWidth > root.width / 3

        function showHead() {
            if (root.visible || pauseTimer.running || queue.length === 0)
                return
            var head = queue[0]
            text = head.text
            buttonText = head.buttonText
            yOffset = head.yOffset
            root.visible = true
            timeoutTimer.interval = head.timeout
            timeoutTimer.restart()
        }

        function dropHead() {
            timeoutTimer.stop()
            queue.shift()
            count = queue.length
            if (count > 0)
                pauseTimer.restart()
        }

        // Once, however often it is hit while the message fades away.
        function act() {
            if (queue.length === 0)
                return
            var callback = queue[0].callback
            queue[0].callback = null
            root.close()
            if (callback)
                callback()
        }
    }
}
