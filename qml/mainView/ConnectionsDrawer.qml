// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQuick.Layouts 1.15
import Backend 1.0

// The saved connections. A click connects to one; who may edit has a menu on each that is saved. By keyboard: arrows,
// Return connects, F2 edits, Delete deletes.
QC2.Popup {
    id: root

    property bool locked: false
    readonly property bool canEdit: !locked || Backend.userGroup === "admin"
    // The connection in use: its name, address and login.
    readonly property var current: ({
        name: connectionsListModel.currentConnectionName,
        address: connectionsListModel.currentAddress,
        login: connectionsListModel.currentLogin
    })

    property real callerWidth: 0

    signal addRequested()
    signal editRequested(int row)

    function openAndStretch(caller) {
        var place = caller.mapToItem(parent, 0, caller.height)
        callerWidth = caller.width
        x = place.x
        y = place.y
        list.currentIndex = Math.max(0, connectionsListModel.currentIndex)
        open()
        list.forceActiveFocus()
    }

    function activate(row) {
        close()
        connectionsListModel.activate(row)
    }

    function edit(row) {
        close()
        editRequested(row)
    }

    parent: QC2.Overlay.overlay
    width: parent ? Math.min(parent.width, Math.max(320, callerWidth)) : 320
    margins: 0
    padding: 0
    modal: true
    dim: false
    focus: true

    contentItem: FocusScope {
        implicitHeight: column.implicitHeight

        ColumnLayout {
            id: column

            anchors.fill: parent
            spacing: 0

            ListView {
                id: list

                objectName: "connectionsList"
                Layout.fillWidth: true
                Layout.preferredHeight: Math.min(contentHeight, 320)
                focus: true
                clip: true
                boundsBehavior: Flickable.StopAtBounds
                highlightMoveDuration: 100
                highlightMoveVelocity: -1
                model: connectionsListModel
                Accessible.role: Accessible.List
                Accessible.name: qsTr("Подключения")
                delegate: QC2.ItemDelegate {
                    id: row

                    readonly property bool editable: root.canEdit && !model.temporary
                    readonly property int modelRow: index
                    readonly property string name: model.name || "" // a row that goes has none

                    objectName: "connectionRow" + index
                    width: ListView.view.width
                    height: 56
                    rightPadding: 4
                    focusPolicy: Qt.StrongFocus
                    highlighted: model.active === true
                    text: name
                    Accessible.role: Accessible.ListItem
                    Accessible.name: name
                    Accessible.description: details.text
                    Keys.onReturnPressed: clicked()
                    Keys.onEnterPressed: clicked()
                    Keys.onPressed: {
                        event.accepted = editable && (event.key === Qt.Key_F2 || event.key === Qt.Key_Delete)
                        if (editable && event.key === Qt.Key_F2)
                            root.edit(index)
                        else if (editable && event.key === Qt.Key_Delete)
                            connectionsListModel.remove(index)
                    }
                    onActiveFocusChanged: {
                        if (activeFocus)
                            list.currentIndex = index
                    }
                    onClicked: root.activate(index)

                    contentItem: RowLayout {
                        spacing: 8

                        ColumnLayout {
                            Layout.fillWidth: true
                            spacing: 0

                            QC2.Label {
                                Layout.fillWidth: true
                                elide: Text.ElideRight
                                maximumLineCount: 1
                                textFormat: Text.PlainText
                                text: row.name
                            }

                            QC2.Label {
                                id: details

                                Layout.fillWidth: true
                                elide: Text.ElideRight
                                maximumLineCount: 1
                                textFormat: Text.PlainText
                                font.pixelSize: 12
                                color: Material.secondaryTextColor
                                text: (model.address || "") + (model.login ? ", " + model.login : "")
                            }
                        }

                        QC2.ToolButton {
                            id: menuButton

                            objectName: "connectionMenuButton" + index
                            visible: row.editable
                            Layout.preferredWidth: 48
                            Layout.preferredHeight: 48
                            Accessible.name: qsTr("Изменить или удалить")
                            Keys.onReturnPressed: clicked()
                            Keys.onEnterPressed: clicked()
                            onClicked: menu.popup(menuButton, 0, height)

                            contentItem: Item {
                                Column {
                                    anchors.centerIn: parent
                                    spacing: 3

                                    Repeater {
                                        model: 3

                                        Rectangle {
                                            width: 4
                                            height: 4
                                            radius: 2
                                            color: menuButton.Material.secondaryTextColor
                                        }
                                    }
                                }
                            }

                            QC2.Menu {
                                id: menu

                                objectName: "connectionMenu" + index

                                QC2.MenuItem {
                                    objectName: "editConnection" + row.modelRow
                                    text: qsTr("Изменить")
                                    onTriggered: root.edit(row.modelRow)
                                }

                                QC2.MenuItem {
                                    objectName: "deleteConnection" + row.modelRow
                                    text: qsTr("Удалить")
                                    onTriggered: connectionsListModel.remove(row.modelRow)
                                }
                            }
                        }
                    }
                }

                QC2.ScrollIndicator.vertical: QC2.ScrollIndicator {}
            }

            QC2.Button {
                objectName: "addConnectionButton"
                Layout.fillWidth: true
                Layout.margins: 4
                flat: true
                highlighted: true
                text: qsTr("Добавить подключение")
                Keys.onReturnPressed: clicked()
                Keys.onEnterPressed: clicked()
                onClicked: {
                    root.close()
                    root.addRequested()
                }
            }
        }
    }
}
