// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import Errors 1.0

// Shows the last error that nobody has read. One closing marks all as read.
QC2.Dialog {
    id: root

    readonly property var error: Errors.lastError
    readonly property bool hasDetail: error !== undefined && error.detail !== ""

    parent: QC2.Overlay.overlay
    anchors.centerIn: parent
    width: Math.max(Math.min(440, parent.width - 16), Math.min(480, parent.width - 48))
    modal: true
    dim: false
    focus: true
    closePolicy: QC2.Popup.CloseOnEscape
    title: hasDetail ? error.title : ""
    onClosed: Errors.readAll()

    contentItem: QC2.Label {
        wrapMode: Text.Wrap
        maximumLineCount: 30
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.error === undefined ? "" : root.hasDetail ? root.error.detail : root.error.title
    }

    footer: QC2.DialogButtonBox {
        alignment: Qt.AlignRight

        QC2.Button {
            flat: true
            focus: true
            text: qsTr("Ок")
            QC2.DialogButtonBox.buttonRole: QC2.DialogButtonBox.AcceptRole
        }
    }

    Connections {
        target: Errors

        function onLastErrorChanged() {
            if (Errors.haveUnread)
                root.open()
        }
    }
}
