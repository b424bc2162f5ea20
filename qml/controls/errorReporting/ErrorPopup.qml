// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import Errors 1.0
import Fluid.Core 1.0 as FLC

// Shows the last error that nobody has read. One closing marks all as read. What does not fit scrolls.
QC2.Dialog {
    id: root

    readonly property var error: Errors.lastError
    readonly property bool hasDetail: error !== undefined && error.detail !== ""

    objectName: "errorPopup"
    parent: QC2.Overlay.overlay
    x: Math.round((parent.width - width) / 2)
    y: Math.round((parent.height - height) / 2)
    width: Math.max(Math.min(440, parent.width - 16), Math.min(480, parent.width - 2 * FLC.Device.gridUnit))
    height: Math.min(Math.ceil(implicitHeight), parent.height - 16)
    modal: true
    dim: false
    focus: true
    closePolicy: QC2.Popup.CloseOnEscape
    title: hasDetail ? error.title : ""
    onClosed: Errors.readAll()

    // The texts come from the server and are shown as they are, never as markup.
    header: QC2.Label {
        objectName: "errorTitle"
        visible: text !== ""
        padding: 24
        bottomPadding: 0
        font.bold: true
        font.pixelSize: 16
        wrapMode: Text.Wrap
        maximumLineCount: 3
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.title
    }

    contentItem: Flickable {
        id: flickable

        objectName: "errorFlickable"
        implicitHeight: label.implicitHeight
        contentWidth: width
        contentHeight: label.height
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        QC2.ScrollBar.vertical: QC2.ScrollBar {}

        QC2.Label {
            id: label

            objectName: "errorText"
            width: flickable.width
            wrapMode: Text.Wrap
            maximumLineCount: 30
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: root.error === undefined ? "" : root.hasDetail ? root.error.detail : root.error.title
            onTextChanged: flickable.contentY = 0
        }
    }

    footer: Item {
        implicitHeight: button.implicitHeight + 16

        QC2.Button {
            id: button

            objectName: "errorButton"
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            anchors.margins: 8
            flat: true
            highlighted: true
            focus: true
            text: qsTr("Ок")
            Keys.onReturnPressed: clicked()
            Keys.onEnterPressed: clicked()
            Keys.onUpPressed: flickable.flick(0, 400)
            Keys.onDownPressed: flickable.flick(0, -400)
            onClicked: root.accept()
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
