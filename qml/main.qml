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
        visible: !loadingScreen.visible
    }

    LoadingScreen {
        id: loadingScreen

        objectName: "loadingScreen"
        anchors.fill: parent
        visible: Backend.status !== Backend.Connected
        onAddRequested: tabAddDialog.open()
    }

    ConnectionsDrawer {
        id: connectionsDrawer

        onAddRequested: tabAddDialog.open()
    }

    QC2.Dialog {
        id: tabAddDialog

        parent: QC2.Overlay.overlay
        anchors.centerIn: parent
        width: Math.min(parent.width - 32, 480)
        modal: true
        focus: true
        title: qsTr("Добавление подключения")
        onAboutToShow: tabSettings.clear()
        onAccepted: {
            if (connectionsListModel.add(tabSettings.name, tabSettings.address, tabSettings.login,
                                         tabSettings.password, {}))
                connectionsListModel.activate(connectionsListModel.count - 1)
        }

        contentItem: TabSettingsWindow {
            id: tabSettings

            onAccepted: {
                if (acceptable)
                    tabAddDialog.accept()
            }
        }

        footer: QC2.DialogButtonBox {
            alignment: Qt.AlignRight

            QC2.Button {
                flat: true
                text: qsTr("Отмена")
                QC2.DialogButtonBox.buttonRole: QC2.DialogButtonBox.RejectRole
            }

            QC2.Button {
                flat: true
                enabled: tabSettings.acceptable
                text: qsTr("Добавить")
                QC2.DialogButtonBox.buttonRole: QC2.DialogButtonBox.AcceptRole
            }
        }
    }

    ErrorPopup {}
}
