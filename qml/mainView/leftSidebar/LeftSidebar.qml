// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQuick.Controls.Material.impl 2.15
import EnhancedMaterial 1.0 as EM
import Fluid.Core 1.0 as FLC
import mainView 1.0
import screens 1.0

// The way through the program at the left of the window: a narrow column of icons that is always there, or a drawer
// with texts where the window is narrow. What it opens outlives a change of its shape.
QC2.Drawer {
    id: root

    property bool mobileAspect: false
    property alias compact: root.mobileAspect
    property bool isDrawer: false // it was opened as one, and goes as one
    property int stackDepth: 1 // of pages; a page at the depth of 3 covers the window
    // Beside the page. It is not bound to: a change of the language would close the drawer that it is chosen in.
    readonly property bool isColumn: !mobileAspect && stackDepth < 3
    readonly property SidebarEntries entries: SidebarEntries {}
    readonly property bool hasKeyboard: body.activeFocus

    signal exitRequested()
    signal errorsRequested()
    signal connectionsRequested(Item caller)

    function iconUrl(icon) {
        return FLC.Utils.iconUrl(icon)
    }

    function openVersion() {
        versionDialog.open()
    }

    function openLanguage() {
        languageDialog.open()
    }

    function openUser() {
        userDialog.open()
    }

    function takeKeyboard() {
        if (mobileAspect)
            open()
        else if (body.item)
            body.item.takeKeyboard()
    }

    function follow() {
        visible = isColumn
    }

    function go(link) {
        nav.show(link)
        if (mobileAspect)
            close()
        else
            mainWindow.pageStack.forceActiveFocus()
    }

    objectName: "leftSidebar"
    edge: Qt.LeftEdge
    width: mobileAspect ? Math.min(240, parent.width - FLC.Device.gridUnit) : 100
    height: parent.height
    padding: 0
    topPadding: 0
    modal: mobileAspect
    interactive: mobileAspect
    dim: mobileAspect
    focus: mobileAspect
    closePolicy: mobileAspect ? QC2.Popup.CloseOnEscape | QC2.Popup.CloseOnPressOutside : QC2.Popup.NoAutoClose
    Material.elevation: interactive ? 4 : 0
    Material.background: mobileAspect ? Material.primary : "#ff313c43"

    onAboutToShow: isDrawer = mobileAspect
    onIsColumnChanged: Qt.callLater(follow) // once it is no drawer in all respects: that one takes the keyboard
    Component.onCompleted: follow()

    // Only what lies above a page casts a shadow, which is painted at a price.
    background: Rectangle {
        objectName: "sidebarBackground"
        color: root.Material.dialogColor
        layer.enabled: root.mobileAspect && root.position > 0
        layer.effect: ElevationEffect {
            elevation: root.Material.elevation
            fullHeight: true
        }

        Rectangle {
            x: parent.width - 1
            width: 1
            height: parent.height
            visible: !root.mobileAspect
            color: root.Material.dividerColor
        }
    }

    // A change of the shape shows no drawer that comes or goes.
    enter: Transition {
        NumberAnimation { duration: root.mobileAspect ? 200 : 0; easing.type: Easing.OutQuad }
    }
    exit: Transition {
        NumberAnimation { duration: root.isDrawer ? 200 : 0; easing.type: Easing.InQuad }
    }

    Behavior on width {
        NumberAnimation { duration: 200 }
    }

    contentItem: FocusScope {
        Loader {
            id: body

            objectName: "sidebarBody"
            anchors.fill: parent
            focus: true
            source: root.mobileAspect ? "qrc:/mainView/leftSidebar/MobileSidebar.qml"
                                      : "qrc:/mainView/leftSidebar/DesktopSidebar.qml"
            onLoaded: item.sidebar = root
        }
    }

    VersionInfoDialog {
        id: versionDialog
    }

    EM.Dialog {
        id: languageDialog

        objectName: "languageDialog"
        title: qsTr("Выбор языка")
        width: 480

        LanguageSelector {}
    }

    EM.Dialog {
        id: userDialog

        objectName: "userDialog"
        title: qsTr("Смена пользователя")
        width: 400

        UserForm {
            onSubmitted: userDialog.submit()
            onAccepted: connectionsListModel.relogin(connectionsListModel.currentIndex, login, password)
        }
    }
}
