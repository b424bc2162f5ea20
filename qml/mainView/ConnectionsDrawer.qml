// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQuick.Layouts 1.15
import Backend 1.0
import colors 1.0

// The saved connections. A click connects to one.
QC2.Popup {
    id: root

    readonly property bool canEdit: Backend.status !== Backend.Connected || Backend.userGroup === "admin"

    signal addRequested()

    function openAndStretch(caller) {
        var place = caller.mapToItem(parent, 0, caller.height)
        x = place.x
        y = place.y
        width = Math.max(Math.min(320, parent.width - 16), Math.min(caller.width, parent.width))
        open()
    }

    parent: QC2.Overlay.overlay
    padding: 0
    focus: true

    contentItem: ColumnLayout {
        spacing: 0

        ListView {
            id: list

            objectName: "connectionsList"
            Layout.fillWidth: true
            Layout.preferredHeight: Math.min(contentHeight, 320)
            clip: true
            keyNavigationEnabled: true
            model: connectionsListModel
            delegate: QC2.ItemDelegate {
                id: row

                width: ListView.view.width
                height: 56
                highlighted: model.active
                text: model.name
                onClicked: {
                    connectionsListModel.activate(index)
                    root.close()
                }

                contentItem: RowLayout {
                    spacing: 8

                    ColumnLayout {
                        Layout.fillWidth: true
                        spacing: 0

                        QC2.Label {
                            Layout.fillWidth: true
                            elide: Text.ElideRight
                            textFormat: Text.PlainText
                            text: model.name
                        }

                        QC2.Label {
                            Layout.fillWidth: true
                            elide: Text.ElideRight
                            textFormat: Text.PlainText
                            font.pixelSize: 12
                            color: Material.hintTextColor
                            text: model.login === "" ? model.address : qsTr("%1, %2").arg(model.address).arg(model.login)
                        }
                    }

                    QC2.ToolButton {
                        visible: root.canEdit && !model.temporary
                        text: "✕"
                        Accessible.name: qsTr("Удалить")
                        onClicked: connectionsListModel.remove(index)
                    }
                }
            }
        }

        QC2.Button {
            Layout.fillWidth: true
            Layout.margins: 4
            flat: true
            highlighted: true
            text: qsTr("Добавить подключение")
            onClicked: {
                root.close()
                root.addRequested()
            }
        }
    }
}
