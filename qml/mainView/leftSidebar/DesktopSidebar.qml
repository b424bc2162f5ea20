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

// The column of icons on a wide window.
FocusScope {
    id: root

    property LeftSidebar sidebar: null

    function takeKeyboard() {
        logoButton.forceActiveFocus(Qt.TabFocusReason)
    }

    Material.theme: Material.Dark

    component SideButton: QC2.ToolButton {
        Layout.alignment: Qt.AlignHCenter
        implicitWidth: 90
        implicitHeight: 90
        focusPolicy: Qt.StrongFocus
        display: QC2.AbstractButton.IconOnly
        icon.width: 32
        icon.height: 32
        Accessible.name: text
        Keys.onReturnPressed: clicked()
        Keys.onEnterPressed: clicked()
        QC2.ToolTip.visible: hovered
        QC2.ToolTip.delay: 500
        QC2.ToolTip.text: text
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        SideButton {
            id: logoButton

            objectName: "logoButton"
            icon.width: 52
            icon.height: 52
            icon.source: "qrc:/images/OndiraLogo.png"
            icon.color: "#00a74b"
            text: versionController.verboseVersion()
            onClicked: root.sidebar.openVersion()
        }

        Flickable {
            objectName: "sidebarEntries"
            Layout.fillWidth: true
            Layout.fillHeight: true
            contentHeight: entriesColumn.implicitHeight
            boundsBehavior: Flickable.StopAtBounds
            interactive: contentHeight > height
            clip: interactive

            ColumnLayout {
                id: entriesColumn

                width: parent.width
                spacing: 0

                Repeater {
                    model: root.sidebar ? root.sidebar.entries : null

                    SideButton {
                        id: entry

                        objectName: "sidebarEntry_" + model.link
                        highlighted: nav.currentLink === model.link
                        icon.source: root.sidebar.iconUrl(model.icon)
                        icon.color: highlighted ? "white" : "#b0bec5"
                        text: qsTranslate("LeftSidebar", model.text)
                        onClicked: root.sidebar.go(model.link)

                        Rectangle {
                            width: 4
                            height: parent.height
                            x: -5
                            visible: entry.highlighted
                            color: Material.accent
                        }
                    }
                }
            }
        }

        QC2.ToolButton {
            id: errorButton

            objectName: "errorsButton"
            Layout.alignment: Qt.AlignHCenter
            implicitWidth: 48
            implicitHeight: 48
            visible: Errors.haveUnread
            focusPolicy: Qt.StrongFocus
            Accessible.name: qsTr("Системные сообщения")
            Keys.onReturnPressed: clicked()
            Keys.onEnterPressed: clicked()
            onClicked: root.sidebar.errorsRequested()

            contentItem: Item {
                FL.Icon {
                    objectName: "errorsIcon"
                    anchors.centerIn: parent
                    size: 34
                    color: "#ff7900"
                    name: "alert/error"

                    SequentialAnimation on opacity {
                        running: errorButton.visible
                        loops: Animation.Infinite

                        NumberAnimation { from: 0.2; to: 1; duration: 900; easing.type: Easing.InExpo }
                        NumberAnimation { from: 1; to: 0.2; duration: 900; easing.type: Easing.OutExpo }
                    }
                }
            }
        }

        QC2.Button {
            objectName: "userButton"
            Layout.fillWidth: true
            Layout.leftMargin: 4
            Layout.rightMargin: 4
            implicitHeight: 48 // the button itself is 32 high, the rest is for the finger
            topInset: 8
            bottomInset: 8
            leftPadding: 4
            rightPadding: 4
            flat: true
            visible: nav.currentLink !== "loading" && text !== ""
            text: connectionsListModel.currentLogin
            Accessible.name: qsTr("Смена пользователя")
            Accessible.description: text
            Keys.onReturnPressed: clicked()
            Keys.onEnterPressed: clicked()
            onClicked: root.sidebar.openUser()

            contentItem: QC2.Label {
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
                textFormat: Text.PlainText
                font.pixelSize: 14
                text: parent.text
            }
        }

        QC2.ToolButton {
            objectName: "languageButton"
            Layout.alignment: Qt.AlignHCenter
            implicitWidth: 48
            implicitHeight: 48
            focusPolicy: Qt.StrongFocus
            text: LanguageController.languageAbbriviation
            Accessible.name: qsTr("Язык интерфейса")
            Accessible.description: text
            Keys.onReturnPressed: clicked()
            Keys.onEnterPressed: clicked()
            onClicked: root.sidebar.openLanguage()
        }

        SideButton {
            objectName: "exitButton"
            implicitWidth: 48
            implicitHeight: 48
            Layout.bottomMargin: 8
            visible: !FrontendSettings.hideExit
            enabled: !FrontendSettings.hideExit
            icon.width: 24
            icon.height: 24
            icon.source: root.sidebar ? root.sidebar.iconUrl("action/exit_to_app") : ""
            text: qsTr("Выход")
            onClicked: root.sidebar.exitRequested()
        }
    }
}
