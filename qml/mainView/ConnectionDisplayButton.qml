// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQuick.Layouts 1.15
import Backend 1.0
import colors 1.0

// The page's title with the state of the connection and the server's clock. A click opens the list of connections. On
// a narrow window the sidebar has its place.
QC2.ItemDelegate {
    id: root

    property string title
    readonly property bool compact: mainWindow.width < 960
    readonly property string statusText: {
        if (Backend.status === Backend.Connecting)
            return qsTr("Подключение...")
        if (Backend.status === Backend.Disconnected)
            return qsTr("Отключен")
        return Backend.publicationsAlive ? serverTimeController.timeString : qsTr("Данные не обновляются")
    }
    readonly property color statusColor: {
        if (Backend.status === Backend.Connected)
            return Backend.publicationsAlive ? Colors.green : Colors.orange
        return Backend.status === Backend.Connecting ? Colors.orange : Colors.red
    }

    objectName: "connectionButton"
    implicitWidth: 200
    implicitHeight: 56
    visible: !compact
    focusPolicy: Qt.StrongFocus
    text: title
    onClicked: connectionsDrawer.openAndStretch(root)
    Accessible.role: Accessible.ButtonMenu
    Accessible.name: text
    Accessible.description: statusText
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    contentItem: RowLayout {
        spacing: 12

        Rectangle {
            objectName: "statusDot"
            Layout.preferredWidth: 12
            Layout.preferredHeight: 12
            radius: 6
            color: root.statusColor
        }

        ColumnLayout {
            Layout.fillWidth: true
            spacing: 0

            QC2.Label {
                objectName: "connectionName"
                Layout.fillWidth: true
                elide: Text.ElideRight
                maximumLineCount: 1
                font.pixelSize: 16
                textFormat: Text.PlainText
                text: root.text
            }

            QC2.Label {
                objectName: "statusLabel"
                Layout.fillWidth: true
                elide: Text.ElideRight
                font.pixelSize: 12
                color: Material.secondaryTextColor
                text: root.statusText
            }
        }
    }
}
