// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQuick.Window 2.15
import Backend 1.0
import EnhancedMaterial 1.0 as EM
import Errors 1.0
import Fluid.Controls 1.0 as FL
import FrontendSettings 1.0
import colors 1.0
import controls 1.0
import editors 1.0
import mainView 1.0
import roboto_fonts 1.0

// The application window: the way through the program at the left, and the stack of pages beside it.
FL.ApplicationWindow {
    id: mainWindow

    property bool wasShown: false // its first picture is on the screen

    // Every row of any model, for a look at what the program knows.
    function showDebugModel(model) {
        nav.show("debugModel", { model: model })
    }

    function openConfirmationDialog(text, okButton, cancelButton, callback) {
        confirmationDialog.positiveButtonText = okButton
        confirmationDialog.negativeButtonText = cancelButton
        confirmationDialog.callback = callback
        confirmationDialog.text = text
        confirmationDialog.open()
    }

    width: 660
    height: 660
    minimumWidth: 320
    minimumHeight: 320
    visible: true
    // Not bound to anything: a change of the language evaluates what is, and the window would leave its user's size.
    visibility: Window.Maximized
    title: "Ondira Smart " + versionController.version()
    color: "white"
    Material.theme: Material.Light
    Material.background: "white"
    Material.accent: Colors.blue
    Material.primary: Material.color(Material.Grey, Material.Shade100)
    appBar.leftPadding: leftSidebar.room
    pageStack.anchors.leftMargin: leftSidebar.room
    pageStack.enabled: !permissionsErrorSplash.visible

    Component.onCompleted: {
        if (startFullscreen) {
            width = Screen.width
            height = Screen.height
            visibility = Window.FullScreen
        }
        if (connectionsListModel.loaded)
            connectionsListModel.activate(0)
    }
    Component.onDestruction: pageStack.pop(null)
    onFrameSwapped: wasShown = true

    // Before anything that writes: the fonts are the same on a machine that has none of them.
    RobotoFontLoader {}

    FontLoader {
        id: gothamProBold

        source: "qrc:/fonts/GothamPro-Bold.ttf"
    }

    // Those that the first picture does not need come after it.
    FontLoader {
        id: gothamPro

        source: mainWindow.wasShown ? "qrc:/fonts/GothamPro.ttf" : ""
    }

    FontLoader {
        id: magistralFont

        source: mainWindow.wasShown ? "qrc:/fonts/MagistralC-Bold.otf" : ""
    }

    FontLoader {
        id: droidSansMonoFont

        source: mainWindow.wasShown ? "qrc:/fonts/DroidSansMono.ttf" : ""
    }

    EM.StackNavigator {
        id: nav

        objectName: "nav"
        stackView: mainWindow.pageStack
        initial: "loading"

        EM.StackItem {
            link: "desktop"
            preload: false
            cache: true

            DesktopPage {}
        }

        EM.StackItem {
            link: "zone"
            preload: false
            level: 2

            ZonePage {}
        }

        EM.StackItem {
            link: "sliders"
            preload: false
            cache: true

            ControlSlidersPage {}
        }

        EM.StackItem {
            link: "settings"
            preload: false
            cache: true

            SettingsPage {}
        }

        EM.StackItem {
            link: "debugModel"
            preload: false
            level: 11

            DebugPage {}
        }

        EM.StackItem {
            link: "loading"
            level: 10

            LoadingPage {}
        }
    }

    Connections {
        property string lastLink

        target: Backend

        function onStatusChanged() {
            if (Backend.status === Backend.Connecting) {
                if (nav.currentLink !== "loading")
                    lastLink = nav.currentLink
                nav.show("loading")
            } else if (Backend.status === Backend.Connected) {
                var isOpenToAll = ["desktop", "sliders", "statistics"].indexOf(lastLink) >= 0
                nav.show(lastLink !== "" && (isOpenToAll || Backend.userGroup === "admin") ? lastLink : "desktop")
                lastLink = ""
            }
        }
    }

    Connections {
        target: connectionsListModel

        function onLoadedChanged() {
            connectionsListModel.activate(0)
        }
    }

    LeftSidebar {
        id: leftSidebar

        readonly property real room: modal ? 0 : width * position

        parent: QC2.Overlay.overlay
        mobileAspect: mainWindow.width < 960
        stackDepth: mainWindow.pageStack.depth
        onErrorsRequested: errorPopup.open()
        onConnectionsRequested: connectionsDrawer.openAndStretch(caller)
        onExitRequested: mainWindow.openConfirmationDialog(qsTr("Выйти из программы?"), qsTr("Выйти"),
                                                           qsTr("Отмена"), Qt.quit)
    }

    ConnectionsDrawer {
        id: connectionsDrawer

        objectName: "connectionsDrawer"
        locked: FrontendSettings.lockConnections
        onAddRequested: tabAddDialog.open()
        onEditRequested: tabEditDialog.showRow(row)
    }

    ConnectionDialog {
        id: tabAddDialog

        objectName: "tabAddDialog"
        title: qsTr("Добавление подключения")
        positiveButtonText: qsTr("Добавить")
        save: function(settings) {
            if (!connectionsListModel.add(settings.name, settings.address, settings.login, settings.password, {}))
                return false
            connectionsListModel.activate(connectionsListModel.count - 1)
            return true
        }
    }

    ConnectionDialog {
        id: tabEditDialog

        property int row: -1

        function showRow(newRow) {
            row = newRow
            connection = connectionsListModel.get(newRow)
            open()
        }

        objectName: "tabEditDialog"
        title: qsTr("Изменение подключения")
        positiveButtonText: qsTr("Сохранить")
        save: function(settings) {
            return connectionsListModel.update(row, settings.name, settings.address, settings.login,
                                               settings.password)
        }
    }

    EM.Dialog {
        id: confirmationDialog

        property var callback: null
        property string text

        objectName: "confirmationDialog"
        width: 400
        onAccepted: {
            if (callback)
                callback()
        }

        FL.BodyLabel {
            objectName: "confirmationText"
            font.pixelSize: 16
            text: confirmationDialog.text
        }
    }

    QuickScheduleDialog {
        id: quickScheduleDialog

        objectName: "quickScheduleDialog"
    }

    ErrorPopup {
        id: errorPopup
    }

    EM.Snackbar {
        id: snackbar

        objectName: "snackbar"
    }

    // From the page to the sidebar, which Tab does not reach, and back.
    Shortcut {
        sequence: "F6"
        onActivated: leftSidebar.hasKeyboard ? mainWindow.pageStack.forceActiveFocus() : leftSidebar.takeKeyboard()
    }

    Shortcut {
        sequence: "Back"
        onActivated: {
            if (leftSidebar.visible && leftSidebar.mobileAspect)
                leftSidebar.close()
            else if (nav.currentLink !== "desktop" && nav.currentLink !== "loading")
                nav.show("desktop")
            else if (!leftSidebar.visible && leftSidebar.mobileAspect)
                leftSidebar.open()
        }
    }

    // What stands above all else, popups too.
    Item {
        parent: QC2.Overlay.overlay.parent
        anchors.fill: parent
        z: 1e7

        PlaceholderControl {
            id: permissionsErrorSplash

            objectName: "permissionsErrorSplash"
            anchors.fill: parent
            z: 10000
            visible: !connectionsListModel.loaded
            immediate: true
            icon: "action/lock_outline"
            title: qsTr("Нет доступа к данным")
            text: qsTr("Нет разрешения на запись и чтение хранилища данных, разрешите запись и чтение файлов "
                       + "для сохранения и загрузки настроек программы")
            button.text: qsTr("Запросить разрешения")
            onClicked: permissionsManager.getStoragePermission()
        }

        Rectangle {
            id: splash

            objectName: "splash"
            anchors.fill: parent
            z: 11000
            color: "white"

            FL.Icon {
                anchors.centerIn: parent
                size: 96
                color: "#00a74b"
                name: "qrc:/images/OndiraLogo.png"
            }

            Timer {
                interval: 300
                running: true
                onTriggered: splash.visible = false
            }
        }
    }
}
