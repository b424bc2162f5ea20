// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls.Material 2.15
import QtQuick.Layouts 1.15
import Backend 1.0
import EnhancedMaterial 1.0 as EM
import Fluid.Controls 1.0 as FL
import colors 1.0

// What program this is, what server it talks to, what has changed, and under which licences all of it comes.
EM.Dialog {
    id: root

    objectName: "versionDialog"
    width: 360
    negativeButtonText: ""

    ColumnLayout {
        readonly property int serverAge: versionController.compareVersions(
            Backend.versionMajor, Backend.versionMinor, Backend.versionPatch, versionController.versionMajor(),
            versionController.versionMinor(), versionController.versionPatch())

        spacing: 4

        FL.Icon {
            Layout.alignment: Qt.AlignHCenter
            size: 72
            color: "#00a74b"
            name: "qrc:/images/OndiraLogo.png"
        }

        FL.HeadlineLabel {
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            font.family: magistralFont.name
            text: "Ondira Smart"
        }

        FL.BodyLabel {
            objectName: "versionLabel"
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            text: qsTr("Версия %1").arg(versionController.version())
        }

        FL.CaptionLabel {
            objectName: "revisionLabel"
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            text: qsTr("rev. %1").arg(versionController.revision())
        }

        FL.BodyLabel {
            objectName: "serverVersionLabel"
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            visible: Backend.status === Backend.Connected
            // Green is the program's own version, orange a newer server, red one that lags behind.
            color: serverAge === 0 ? Colors.green : serverAge > 0 ? "#c55a00" : Colors.red
            text: qsTr("Версия сервера %1.%2.%3").arg(Backend.versionMajor).arg(Backend.versionMinor)
                                                 .arg(Backend.versionPatch)
        }

        FL.ListItem {
            objectName: "changelogItem"
            Layout.fillWidth: true
            Layout.topMargin: 8
            focus: true
            iconName: "action/history"
            text: qsTr("История версий")
            onClicked: changelogDialog.open()
        }

        FL.ListItem {
            objectName: "licensesItem"
            Layout.fillWidth: true
            iconName: "action/description"
            text: qsTr("О лицензиях")
            onClicked: licensesDialog.open()
        }

        FL.CaptionLabel {
            Layout.fillWidth: true
            Layout.topMargin: 8
            horizontalAlignment: Text.AlignHCenter
            text: "ondira.example"
        }

        EM.Dialog {
            id: changelogDialog

            objectName: "changelogDialog"
            title: qsTr("История версий")
            width: 520
            negativeButtonText: ""

            TextViewer {
                objectName: "changelogText"
                implicitHeight: 360
                focus: true
                source: "qrc:/changelog/changelog.txt"
            }
        }

        EM.Dialog {
            id: licensesDialog

            objectName: "licensesDialog"
            title: qsTr("О лицензиях")
            width: 520
            height: 500
            negativeButtonText: ""

            ColumnLayout {
                EM.TabBar {
                    id: tabs

                    Layout.fillWidth: true
                    fixed: true

                    EM.TabButton {
                        objectName: "licenseTab"
                        text: qsTr("Лицензия")
                    }

                    EM.TabButton {
                        objectName: "thirdPartyLicensesTab"
                        text: qsTr("Лицензии третьих сторон")
                    }
                }

                TextViewer {
                    objectName: "licenseText"
                    Layout.fillWidth: true
                    Layout.preferredHeight: 320
                    focus: true
                    source: tabs.currentIndex === 0 ? "qrc:/licenses/license.txt" : "qrc:/licenses/third_party.txt"
                }
            }
        }
    }
}
