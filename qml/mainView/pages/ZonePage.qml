// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQml 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import Fluid.Controls 1.0 as FL
import SortFilterProxyModel 0.2
import mainView 1.0
import screens 1.0

// One zone with its devices. The tabs lead to the other zones of its part.
FL.Page {
    id: root

    property string uid
    property var model: ({}) // the record of the zone; empty while there is none
    property string partUid // of the last zone that was there

    function tabOf(zone) {
        for (var i = 0; i < zonesModel.count; ++i) {
            if (zonesModel.get(i, "uid") === zone)
                return i
        }
        return -1
    }

    function follow() {
        tabs.currentIndex = tabOf(uid)
        // Twice: the end of the list is a guess from the tabs in sight until the one at that end is among them.
        for (var i = 0; i < 2 && tabs.currentIndex >= 0; ++i)
            tabs.positionViewAtIndex(tabs.currentIndex, ListView.Contain)
    }

    function refresh() {
        model = zonesListModel.getByUid(uid)
        if (model.partUid !== undefined)
            partUid = model.partUid
        Qt.callLater(follow)
    }

    objectName: "zone"
    title: qsTr("Редактирование зоны")
    background: Rectangle {
        color: "#edf0f3"
    }
    onUidChanged: refresh()

    OndiraSidebarActions {
        page: root
    }

    Connections {
        target: zonesListModel

        function onDataChanged() { Qt.callLater(root.refresh) }
        function onModelReset() { Qt.callLater(root.refresh) }
        function onRowsInserted() { Qt.callLater(root.refresh) }
        function onRowsRemoved() { Qt.callLater(root.refresh) }
    }

    SortFilterProxyModel {
        id: zonesModel

        sourceModel: root.partUid === "" ? null : zonesListModel
        filterRoleName: "partUid"
        filterPattern: root.partUid
        filterPatternSyntax: SortFilterProxyModel.FixedString
        sorters: StringSorter { roleName: "name"; caseSensitivity: Qt.CaseInsensitive; numericMode: true }
    }

    Connections {
        target: zonesModel

        function onLayoutChanged() { Qt.callLater(root.follow) }
        function onRowsInserted() { Qt.callLater(root.follow) }
        function onRowsMoved() { Qt.callLater(root.follow) }
        function onRowsRemoved() { Qt.callLater(root.follow) }
    }

    header: Rectangle {
        implicitHeight: 48
        visible: tabs.count > 0
        color: "white"

        // A part may have hundreds of zones: only the tabs in sight are there.
        ListView {
            id: tabs

            objectName: "zoneTabs"
            anchors.fill: parent
            orientation: ListView.Horizontal
            boundsBehavior: Flickable.StopAtBounds
            highlightMoveDuration: 100
            highlightMoveVelocity: -1
            currentIndex: -1
            model: zonesModel
            onWidthChanged: Qt.callLater(root.follow)
            Accessible.role: Accessible.PageTabList
            Accessible.name: qsTr("Зоны")
            delegate: QC2.TabButton {
                id: tab

                objectName: "zoneTab" + index
                width: Math.min(Math.max(96, label.implicitWidth + leftPadding + rightPadding), 320)
                height: 48
                leftPadding: 16
                rightPadding: 16
                topPadding: 0
                bottomPadding: 0
                autoExclusive: false
                checkable: false
                checked: model.uid === root.uid
                focusPolicy: Qt.StrongFocus
                text: model.name.trim() === "" ? qsTr("Зона без названия") : model.name
                Accessible.role: Accessible.PageTab
                Keys.onReturnPressed: clicked()
                Keys.onEnterPressed: clicked()
                onActiveFocusChanged: {
                    if (activeFocus)
                        tabs.positionViewAtIndex(index, ListView.Contain)
                }
                onClicked: root.uid = model.uid

                contentItem: QC2.Label {
                    id: label

                    elide: Text.ElideRight
                    maximumLineCount: 1
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                    textFormat: Text.PlainText
                    font: tab.font
                    color: tab.checked ? Material.accent : Material.foreground
                    text: tab.text
                }

                Rectangle {
                    anchors.bottom: parent.bottom
                    width: parent.width
                    height: 2
                    visible: tab.checked
                    color: Material.accent
                }
            }
        }
    }

    ZoneScreen {
        objectName: "zoneScreen"
        anchors.fill: parent
        focus: true
        uid: root.uid
        model: root.model
    }
}
