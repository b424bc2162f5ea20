// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import EnhancedMaterial 1.0 as EM
import Fluid.Controls 1.0 as FL
import SortFilterProxyModel 0.2

// A table of zones, or of other objects, of which some are ticked. What it edits is a list of uids; those that are not
// among its rows stay in the list. Without rows nothing of it shows.
Column {
    id: root

    property string caption
    property alias model: proxy.sourceModel
    property string textRole: "name"
    property string subTextRole
    property alias sortRole: proxy.sortRoleName
    property var selectedUids: []
    property var detail: null // a function of the uid: what stands at the right of the row
    property int maximumRows: 6 // that show at once
    readonly property int count: all.count
    readonly property var selectedSet: new Set(internal.listOf(selectedUids))
    readonly property int checkedCount: internal.checkedIn(selectedSet, all.revision)

    signal edited(var uids)

    function setChecked(uid, isChecked) {
        if (selectedSet.has(uid) === isChecked)
            return
        var uids = internal.listOf(selectedUids)
        internal.tell(isChecked ? uids.concat([uid]) : uids.filter(one => one !== uid))
    }

    // The rows that pass the search.
    function setAllChecked(isChecked) {
        var shown = new Set(internal.uidsOf(proxy))
        var uids = internal.listOf(selectedUids).filter(uid => !shown.has(uid))
        internal.tell(isChecked ? uids.concat(Array.from(shown)) : uids)
    }

    visible: count > 0

    QtObject {
        id: internal

        function listOf(uids) {
            return uids && uids.length !== undefined ? Array.from(uids, uid => String(uid)) : []
        }

        function uidsOf(rows) {
            var uids = []
            for (var i = 0, count = rows.rowCount(); i < count; ++i)
                uids.push(String(rows.get(i, "uid")))
            return uids
        }

        // The revision says when to count anew.
        function checkedIn(set, revision) {
            return uidsOf(proxy).filter(uid => set.has(uid)).length
        }

        function tell(uids) {
            root.selectedUids = uids
            root.edited(uids)
        }
    }

    SortFilterProxyModel {
        id: proxy

        sortRoleName: "sort"

        filters: RegExpFilter {
            enabled: searchField.visible && searchField.text !== ""
            roleName: root.textRole
            pattern: searchField.text
            syntax: RegExpFilter.FixedString
            caseSensitivity: Qt.CaseInsensitive
        }
    }

    // All rows, whatever is searched for.
    SortFilterProxyModel {
        id: all

        property int revision: 0

        sourceModel: proxy.sourceModel
        onCountChanged: ++revision
    }

    Connections {
        target: proxy

        function onCountChanged() {
            ++all.revision
        }
    }

    FL.CaptionLabel {
        objectName: "tableCaption"
        width: parent.width
        topPadding: 8
        visible: text !== ""
        wrapMode: Text.Wrap
        maximumLineCount: 2
        elide: Text.ElideRight
        color: Material.secondaryTextColor
        text: root.caption
    }

    EM.SearchField {
        id: searchField

        objectName: "tableSearch"
        width: parent.width
        visible: all.count > 10
    }

    QC2.CheckDelegate {
        id: allBox

        objectName: "checkAll"
        width: parent.width
        height: 48
        leftPadding: 8
        rightPadding: 8
        enabled: list.count > 0
        focusPolicy: Qt.StrongFocus
        tristate: false
        text: qsTr("Выбрано: %1").arg(root.checkedCount)
        checkState: root.checkedCount === 0 ? Qt.Unchecked : root.checkedCount < list.count ? Qt.PartiallyChecked
                                                                                             : Qt.Checked
        nextCheckState: () => checkState // it follows the rows
        Keys.onReturnPressed: clicked()
        Keys.onEnterPressed: clicked()
        onClicked: root.setAllChecked(root.checkedCount < list.count)
    }

    ListView {
        id: list

        objectName: "zonesTable"
        width: parent.width
        height: Math.min(count, root.maximumRows) * 48
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        activeFocusOnTab: true
        keyNavigationEnabled: true
        highlightFollowsCurrentItem: true
        highlightMoveDuration: 0
        model: proxy
        QC2.ScrollBar.vertical: QC2.ScrollBar {}
        Keys.onSpacePressed: if (currentItem) currentItem.toggle()
        Keys.onReturnPressed: if (currentItem) currentItem.toggle()
        Keys.onEnterPressed: if (currentItem) currentItem.toggle()

        delegate: QC2.ItemDelegate {
            id: row

            readonly property string uid: String(model.uid)
            readonly property bool isChecked: root.selectedSet.has(uid)
            readonly property string name: model[root.textRole] || ""
            readonly property string note: root.detail ? String(root.detail(uid) || "")
                                                       : root.subTextRole !== "" ? model[root.subTextRole] || "" : ""

            function toggle() {
                root.setChecked(uid, !isChecked)
            }

            objectName: "zoneRow_" + uid
            width: ListView.view.width
            height: 48
            leftPadding: 8
            rightPadding: 8
            focusPolicy: Qt.NoFocus
            highlighted: ListView.isCurrentItem && ListView.view.activeFocus
            Accessible.role: Accessible.CheckBox
            Accessible.name: name
            Accessible.description: note
            Accessible.checkable: true
            Accessible.checked: isChecked
            Accessible.onToggleAction: toggle()
            onClicked: {
                ListView.view.currentIndex = index
                toggle()
            }

            contentItem: Item {
                opacity: row.enabled ? 1 : 0.38

                FL.BodyLabel {
                    objectName: "zoneName"
                    width: Math.min(implicitWidth, parent.width - 32 - (noteLabel.text !== "" ? parent.width / 3 : 0))
                    height: parent.height
                    verticalAlignment: Text.AlignVCenter
                    wrapMode: Text.NoWrap
                    elide: Text.ElideRight
                    text: row.name
                }

                FL.CaptionLabel {
                    id: noteLabel

                    objectName: "zoneNote"
                    anchors.right: parent.right
                    anchors.rightMargin: 40
                    width: Math.min(implicitWidth, parent.width / 2 - 40)
                    height: parent.height
                    horizontalAlignment: Text.AlignRight
                    verticalAlignment: Text.AlignVCenter
                    wrapMode: Text.NoWrap
                    elide: Text.ElideRight
                    color: Material.secondaryTextColor
                    text: row.note
                }

                FL.Icon {
                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    color: row.isChecked ? Material.accent : Material.secondaryTextColor
                    name: row.isChecked ? "toggle/check_box" : "toggle/check_box_outline_blank"
                }
            }
        }
    }
}
