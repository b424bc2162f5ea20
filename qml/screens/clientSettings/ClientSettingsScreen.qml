// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Layouts 1.15
import Backend 1.0
import EnhancedMaterial 1.0 as EM
import Fluid.Controls 1.0 as FL
import controls 1.0

// The settings of this program itself: their groups at the left, the chosen one beside it or on top.
EM.EditorView {
    id: root

    property bool active: true // whether its tab is the one on show
    readonly property Item settingsPage: currentItem
    readonly property bool canSave: settingsPage !== null && typeof settingsPage.onSave === "function"
    readonly property bool canRefresh: settingsPage !== null && typeof settingsPage.refresh === "function"
    readonly property var globalActions: adapter.visibleActions

    function getStaticModel() {
        var rows = []
        if (Backend.status === Backend.Connected && Backend.userGroup === "admin") {
            rows.push({ text: QT_TR_NOOP("Интерфейс"), file: "ClientInterfaceSettings.qml" })
            rows.push({ text: QT_TR_NOOP("Язык"), file: "ClientLanguageSettings.qml" })
        }
        return rows
    }

    function save() {
        settingsPage.onSave()
        snackbar.open(qsTr("Сохранено"))
    }

    listWidth: 320
    mobile: leftSidebar.mobileAspect
    model: getStaticModel()
    listDelegate: EM.EditorViewDelegate {
        objectName: "clientSettingsRow" + index
        text: qsTr(modelData.text)
    }
    delegate: Loader {
        readonly property var onSave: item ? item.onSave : undefined
        readonly property var refresh: item ? item.refresh : undefined

        source: modelData.file
    }

    EM.ActionsVisibilityAdapter {
        id: adapter

        FL.Action {
            objectName: "refreshAction"
            visible: root.active && root.canRefresh
            iconName: "navigation/refresh"
            text: qsTr("Обновить")
            onTriggered: root.settingsPage.refresh()
        }

        FL.Action {
            objectName: "saveAction"
            visible: root.active && root.canSave && root.mobile
            iconName: "content/save"
            text: qsTr("Сохранить")
            onTriggered: root.save()
        }
    }

    EM.ExtendedFAB {
        objectName: "saveButton"
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: 16
        visible: root.canSave && !root.mobile
        extended: true
        icon.source: "qrc:/icons/material/content/save.svg"
        text: qsTr("Сохранить")
        onClicked: root.save()
    }

    PlaceholderControl {
        objectName: "noSettings"
        anchors.fill: parent
        visible: root.model.length === 0
        icon: "action/settings"
        title: qsTr("Настройки недоступны")
        button.visible: false
    }
}
