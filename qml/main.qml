// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQuick.Window 2.15
import Backend 1.0
import colors 1.0
import controls 1.0
import mainView 1.0

// The application window: the connection on top, the plan below it, and the screen that waits for the server.
QC2.ApplicationWindow {
    id: mainWindow

    width: 660
    height: 660
    minimumWidth: 320
    minimumHeight: 320
    visible: true
    visibility: startFullscreen ? Window.FullScreen : Window.Maximized
    title: "Ondira Smart " + versionController.version()
    color: "white"
    Material.theme: Material.Light
    Material.accent: Colors.blue
    Material.primary: Material.color(Material.Grey, Material.Shade100)

    Component.onCompleted: {
        if (startFullscreen) {
            width = Screen.width
            height = Screen.height
            visibility = Window.FullScreen
        }
        if (connectionsListModel.loaded)
            connectionsListModel.activate(0)
    }

    // Before anything that writes: the fonts are the same on a machine that has none of them.
    FontLoader {
        source: "qrc:/fonts/Roboto-Regular.ttf"
    }

    FontLoader {
        source: "qrc:/fonts/Roboto-Medium.ttf"
    }

    FontLoader {
        source: "qrc:/fonts/Roboto-Bold.ttf"
    }

    FontLoader {
        source: "qrc:/fonts/GothamPro-Bold.ttf"
    }

    header: QC2.ToolBar {
        height: 56

        ConnectionDisplayButton {
            id: connectionButton

            objectName: "connectionButton"
            width: Math.min(parent.width, 320)
            height: parent.height
            onClicked: connectionsDrawer.openAndStretch(connectionButton)
        }
    }

    Connections {
        target: connectionsListModel

        function onLoadedChanged() {
            connectionsListModel.activate(0)
        }
    }

    DesktopPage {
        objectName: "desktopPage"
        anchors.fill: parent
        focus: visible
        visible: !loadingScreen.visible
        onAddRequested: tabAddDialog.show({ name: "", address: "", login: "", password: "" })
    }

    LoadingScreen {
        id: loadingScreen

        objectName: "loadingScreen"
        anchors.fill: parent
        focus: visible
        visible: Backend.status !== Backend.Connected
        onAddRequested: tabAddDialog.show({ name: "", address: "", login: "", password: "" })
    }

    ConnectionsDrawer {
        id: connectionsDrawer

        objectName: "connectionsDrawer"
        onAddRequested: tabAddDialog.show({ name: "", address: "", login: "", password: "" })
        onEditRequested: tabEditDialog.showRow(row)
    }

    ConnectionDialog {
        id: tabAddDialog

        objectName: "tabAddDialog"
        title: qsTr("Добавление подключения")
        submitText: qsTr("Добавить")
        onSubmitted: {
            if (connectionsListModel.add(settings.name, settings.address, settings.login, settings.password, {})) {
                accept()
                connectionsListModel.activate(connectionsListModel.count - 1)
            } else {
                refuse()
            }
        }
    }

    ConnectionDialog {
        id: tabEditDialog

        property int row: -1

        function showRow(newRow) {
            row = newRow
            show(connectionsListModel.get(newRow))
        }

        objectName: "tabEditDialog"
        title: qsTr("Изменение подключения")
        submitText: qsTr("Сохранить")
        onSubmitted: {
            if (connectionsListModel.update(row, settings.name, settings.address, settings.login, settings.password))
                accept()
            else
                refuse()
        }
    }

    ErrorPopup {}
}
