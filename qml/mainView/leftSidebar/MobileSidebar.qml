// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQuick.Layouts 1.15
import Backend 1.0
import Errors 1.0
import FrontendSettings 1.0
import Fluid.Controls 1.0 as FL
import LanguageController 1.0

// The drawer of a narrow window.
FocusScope {
    id: root

    property LeftSidebar sidebar: null

    Rectangle {
        id: header

        width: parent.width
        height: 72
        color: "#313c43"

        RowLayout {
            anchors.fill: parent
            anchors.margins: 8
            spacing: 8

            QC2.ToolButton {
                objectName: "logoButton"
                implicitWidth: 48
                implicitHeight: 48
                focusPolicy: Qt.StrongFocus
                display: QC2.AbstractButton.IconOnly
                icon.width: 36
                icon.height: 36
                icon.source: "qrc:/images/OndiraLogo.png"
                icon.color: "#00a74b"
                text: versionController.verboseVersion()
                Accessible.name: text
                Keys.onReturnPressed: clicked()
                Keys.onEnterPressed: clicked()
                onClicked: root.sidebar.openVersion()
            }

            QC2.Label {
                objectName: "productLabel"
                Layout.fillWidth: true
                Layout.fillHeight: true
                verticalAlignment: Text.AlignVCenter
                color: "white"
                fontSizeMode: Text.Fit
                minimumPixelSize: 10
                font.family: magistralFont.name
                font.pixelSize: 24
                text: versionController.verboseVersion()
            }
        }
    }

    Flickable {
        id: flickable

        objectName: "mobileSidebarFlickable"
        anchors.fill: parent
        anchors.topMargin: header.height
        contentHeight: column.implicitHeight
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        QC2.ScrollIndicator.vertical: QC2.ScrollIndicator {}

        ColumnLayout {
            id: column

            width: parent.width
            spacing: 0

            FL.ListItem {
                id: connectionItem

                objectName: "connectionItem"
                Layout.fillWidth: true
                focus: true
                text: connectionsListModel.currentConnectionName === "" ? qsTr("Подключения")
                                                                        : connectionsListModel.currentConnectionName
                subText: [connectionsListModel.currentAddress, status].filter(Boolean).join("\n")
                maximumLineCount: 2
                Accessible.role: Accessible.ButtonMenu
                onClicked: root.sidebar.connectionsRequested(connectionItem)

                readonly property string status: {
                    if (Backend.status !== Backend.Connected)
                        return qsTr("Отключен")
                    return Backend.publicationsAlive ? serverTimeController.timeString
                                                     : qsTr("Данные не обновляются")
                }
            }

            FL.Divider {
                Layout.fillWidth: true
            }

            Repeater {
                model: root.sidebar ? root.sidebar.entries : null

                FL.ListItem {
                    objectName: "sidebarEntry_" + model.link
                    Layout.fillWidth: true
                    highlighted: nav.currentLink === model.link
                    iconName: model.icon
                    text: qsTranslate("LeftSidebar", model.text)
                    onClicked: root.sidebar.go(model.link)
                }
            }

            FL.Divider {
                Layout.fillWidth: true
            }

            FL.ListItem {
                objectName: "errorsButton"
                Layout.fillWidth: true
                visible: Errors.haveUnread
                iconName: "alert/error"
                text: qsTr("Системные сообщения")
                onClicked: root.sidebar.errorsRequested()
            }

            FL.ListItem {
                objectName: "languageButton"
                Layout.fillWidth: true
                iconName: "action/language"
                text: qsTr("Язык интерфейса")
                valueText: LanguageController.languageAbbriviation
                onClicked: root.sidebar.openLanguage()
            }

            FL.ListItem {
                objectName: "exitButton"
                Layout.fillWidth: true
                visible: !FrontendSettings.hideExit
                enabled: !FrontendSettings.hideExit
                iconName: "action/exit_to_app"
                text: qsTr("Выход")
                onClicked: root.sidebar.exitRequested()
            }
        }
    }
}
