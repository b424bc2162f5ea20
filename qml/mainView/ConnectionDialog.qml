// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQuick.Layouts 1.15
import EnhancedMaterial 1.0 as EM
import controls 1.0

// The form of a connection as a dialog. Who opens it saves what was typed; it stays open where that fails.
EM.Dialog {
    id: root

    property var save: null // a function of the settings; true once they are stored
    property var connection: ({ name: "", address: "", login: "", password: "" })

    width: 480
    positiveButton.enabled: item !== null && item.acceptable

    ColumnLayout {
        id: content

        readonly property alias acceptable: form.acceptable
        property bool refused: false

        function aboutToShow() {
            form.fill(root.connection.name, root.connection.address, root.connection.login, root.connection.password)
        }

        function accept() {
            refused = !root.save(form)
            return !refused
        }

        spacing: 0

        TabSettingsWindow {
            id: form

            Layout.fillWidth: true
            focus: true
            onAccepted: root.submit()
            onNameChanged: content.refused = false
            onAddressChanged: content.refused = false
            onLoginChanged: content.refused = false
            onPasswordChanged: content.refused = false
        }

        QC2.Label {
            objectName: "refusalLabel"
            Layout.fillWidth: true
            visible: content.refused
            color: Material.color(Material.Red, Material.Shade800)
            wrapMode: Text.Wrap
            text: qsTr("Не удалось сохранить. Возможно, такое подключение уже есть.")
        }
    }
}
