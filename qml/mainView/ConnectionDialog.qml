// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQuick.Layouts 1.15
import QtQuick.Window 2.15
import controls 1.0

// The form of a connection as a dialog. Who opens it saves what is submitted, and either closes it or refuses.
QC2.Dialog {
    id: root

    property alias settings: form
    property string submitText
    property bool refused: false

    signal submitted()

    function show(connection) {
        form.fill(connection.name, connection.address, connection.login, connection.password)
        refused = false
        open()
    }

    function refuse() {
        refused = true
    }

    function submit() {
        if (form.acceptable)
            submitted()
    }

    parent: QC2.Overlay.overlay
    anchors.centerIn: parent
    width: Math.min(parent.width - 16, 480)
    height: Math.min(implicitHeight, parent.height - 16)
    topPadding: 8
    bottomPadding: 0
    modal: true
    focus: true
    closePolicy: QC2.Popup.CloseOnEscape // a click beside it would throw away what was typed

    contentItem: Flickable {
        id: flickable

        readonly property Item focusItem: Window.activeFocusItem

        // Taken a moment later: the texts wrap anew while the dialog still looks for its size.
        property real formHeight: 0

        function takeFormHeight() {
            formHeight = column.implicitHeight
        }

        objectName: "connectionForm"
        implicitHeight: formHeight
        contentWidth: width
        contentHeight: formHeight
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        // The field that has the keyboard is in sight, however low the window.
        onFocusItemChanged: {
            if (!focusItem || focusItem.parent !== form)
                return
            contentY = Math.max(0, Math.min(focusItem.y, Math.max(contentY, focusItem.y + focusItem.height - height)))
        }

        QC2.ScrollIndicator.vertical: QC2.ScrollIndicator {}

        ColumnLayout {
            id: column

            width: flickable.width
            spacing: 0
            onImplicitHeightChanged: Qt.callLater(flickable.takeFormHeight)

            TabSettingsWindow {
                id: form

                Layout.fillWidth: true
                focus: true
                onAccepted: root.submit()
                onNameChanged: root.refused = false
                onAddressChanged: root.refused = false
                onLoginChanged: root.refused = false
                onPasswordChanged: root.refused = false
            }

            QC2.Label {
                objectName: "refusalLabel"
                Layout.fillWidth: true
                visible: root.refused
                color: Material.color(Material.Red, Material.Shade800)
                wrapMode: Text.Wrap
                text: qsTr("Не удалось сохранить. Возможно, такое подключение уже есть.")
            }
        }
    }

    footer: Item {
        implicitHeight: buttons.implicitHeight + 16

        RowLayout {
            id: buttons

            anchors.fill: parent
            anchors.margins: 8
            spacing: 8

            Item {
                Layout.fillWidth: true
            }

            QC2.Button {
                objectName: "cancelButton"
                Layout.minimumWidth: 64
                flat: true
                text: qsTr("Отмена")
                Keys.onReturnPressed: clicked()
                Keys.onEnterPressed: clicked()
                onClicked: root.reject()
            }

            QC2.Button {
                objectName: "submitButton"
                Layout.minimumWidth: 64
                flat: true
                highlighted: true
                enabled: form.acceptable
                text: root.submitText
                Keys.onReturnPressed: clicked()
                Keys.onEnterPressed: clicked()
                onClicked: root.submit()
            }
        }
    }
}
