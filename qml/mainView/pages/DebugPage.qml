// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Layouts 1.15
import Fluid.Controls 1.0 as FL
import SortFilterProxyModel 0.2
import mainView 1.0

// Every row of any model, as it is.
FL.Page {
    id: root

    property var model: null

    title: qsTr("Модель данных")

    OndiraSidebarActions {
        page: root
    }

    ListView {
        id: list

        objectName: "debugList"
        anchors.fill: parent
        anchors.margins: 8
        focus: true
        clip: true
        spacing: 8
        model: SortFilterProxyModel {
            sourceModel: root.model
        }
        delegate: ColumnLayout {
            id: row

            // The roles of the row in the order of their names.
            readonly property var values: list.model.get(index)
            readonly property var names: Object.keys(values).sort()

            width: ListView.view.width
            Component.onCompleted: console.log(JSON.stringify(values))

            Repeater {
                model: row.names

                RowLayout {
                    Layout.fillWidth: true
                    spacing: 8

                    FL.BodyLabel {
                        Layout.preferredWidth: 120
                        Layout.alignment: Qt.AlignTop
                        wrapMode: Text.WrapAnywhere
                        font.weight: Font.Medium
                        text: modelData
                    }

                    FL.BodyLabel {
                        Layout.fillWidth: true
                        wrapMode: Text.WrapAnywhere
                        text: String(JSON.stringify(row.values[modelData]))
                    }
                }
            }

            FL.Divider {
                Layout.fillWidth: true
            }
        }

        QC2.ScrollIndicator.vertical: QC2.ScrollIndicator {}
    }
}
