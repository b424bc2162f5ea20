// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQuick.Window 2.15
import Fluid.Controls 1.0 as FL
import SortFilterProxyModel 0.2

// The list of a menu field: below the field, or above where there is more room; with a search box or without. It has
// only rows that pass the search, and tells the chosen one by its place among all.
QC2.Popup {
    id: root

    property MenuRows rows: null
    property Component delegate: null // a row drawn by another
    property string textRole
    property string searchRole: textRole // what is searched in
    property string iconNameRole
    property string iconSourceRole
    property int maxVisibleItems: 4
    property bool isSearchable: false
    property alias list: view
    readonly property string searchText: isSearchable ? searchField.text.trim().toLowerCase() : ""
    readonly property var places: rows && !rows.isModel && searchText !== "" ? matchingPlaces() : null // in a list

    signal chosen(int index)

    function matchingPlaces() {
        var found = []
        for (var i = 0; i < rows.count; ++i) {
            if (rows.textAt(i, searchRole).toLowerCase().indexOf(searchText) >= 0)
                found.push(i)
        }
        return found
    }

    // From a row of the view to one of all, and back: -1 where there is none.
    function toRow(viewIndex) {
        if (viewIndex < 0 || viewIndex >= view.count)
            return -1
        return places !== null ? places[viewIndex] : rows.isModel ? matches.mapToSource(viewIndex) : viewIndex
    }

    function toView(row) {
        if (row < 0 || row >= rows.count)
            return -1
        return places !== null ? places.indexOf(row) : rows.isModel ? matches.mapFromSource(row) : row
    }

    function textAt(viewIndex) {
        return rows.textAt(toRow(viewIndex), textRole)
    }

    function choose(viewIndex) {
        var row = toRow(viewIndex)
        if (row < 0)
            return
        close()
        chosen(row)
    }

    function goTo(viewIndex) {
        if (view.count === 0)
            return
        view.currentIndex = Math.max(0, Math.min(view.count - 1, viewIndex))
        view.positionViewAtIndex(view.currentIndex, ListView.Contain)
    }

    // Whether the key was one of the list.
    function handleKey(event) {
        switch (event.key) {
        case Qt.Key_Up: goTo(view.currentIndex - 1); return true
        case Qt.Key_Down: goTo(view.currentIndex + 1); return true
        case Qt.Key_PageUp: goTo(view.currentIndex - maxVisibleItems); return true
        case Qt.Key_PageDown: goTo(view.currentIndex + maxVisibleItems); return true
        case Qt.Key_Home: goTo(0); return true
        case Qt.Key_End: goTo(view.count - 1); return true
        case Qt.Key_Return:
        case Qt.Key_Enter: choose(view.currentIndex); return true
        case Qt.Key_Escape: close(); return true
        }
        return false
    }

    // Below, above, or where there is more room, with as many rows as fit there.
    function place() {
        if (!parent || !parent.Window.window)
            return
        var top = parent.mapToItem(null, 0, 0).y
        var below = parent.Window.window.height - top - parent.boxHeight - margins
        var above = top - margins
        var isBelow = wantedHeight <= below || below >= above
        room = Math.max(96, isBelow ? below : above)
        y = isBelow ? parent.boxHeight : -Math.min(wantedHeight, room)
    }

    property real room: 10000
    readonly property real wantedHeight: verticalPadding * 2 + (isSearchable ? 56 : 0)
                                         + Math.max(1, Math.min(maxVisibleItems, view.count)) * 48

    width: parent ? Math.max(160, parent.width) : 160
    height: Math.min(wantedHeight, room)
    margins: 8
    padding: 0
    verticalPadding: 8
    focus: isSearchable
    closePolicy: QC2.Popup.CloseOnEscape | QC2.Popup.CloseOnPressOutsideParent
    onAboutToShow: {
        searchField.clear()
        room = 10000
        place()
        view.currentIndex = toView(rows.selectedIndex)
        view.positionViewAtIndex(Math.max(0, view.currentIndex), ListView.Center)
        if (isSearchable)
            searchField.forceActiveFocus()
    }
    onWantedHeightChanged: {
        if (visible)
            place()
    }
    onSearchTextChanged: {
        if (visible)
            goTo(0)
    }

    SortFilterProxyModel {
        id: matches

        sourceModel: root.rows && root.rows.isModel ? root.rows.proxy : null

        filters: ExpressionFilter {
            enabled: root.searchText !== ""
            expression: root.rows.textAt(model.index, root.searchRole).toLowerCase().indexOf(root.searchText) >= 0
        }
    }

    Connections {
        target: root.parent ? root.parent.Window.window : null
        enabled: root.visible

        function onHeightChanged() {
            root.room = 10000
            root.place()
        }
    }

    contentItem: Item {
        SearchField {
            id: searchField

            objectName: "menuSearchField"
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.margins: 8
            height: visible ? 48 : 0
            visible: root.isSearchable
            Keys.priority: Keys.BeforeItem
            Keys.onPressed: event.accepted = event.key !== Qt.Key_Home && event.key !== Qt.Key_End
                                             && !(event.key === Qt.Key_Escape && text !== "") && root.handleKey(event)
        }

        ListView {
            id: view

            // For rows that take clicks of their own.
            function choose(index) {
                root.choose(index)
            }

            objectName: "menuList"
            anchors.fill: parent
            anchors.topMargin: root.isSearchable ? 56 : 0
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            highlightMoveDuration: 0
            keyNavigationEnabled: false
            cacheBuffer: 0 // a row made ahead is still on its way when a search empties the list, and the log says so
            // Rows are made while they are looked at.
            model: !root.rows ? null : root.rows.isModel ? matches
                   : root.places !== null ? root.places.map(place => root.rows.items[place]) : root.rows.items
            delegate: root.delegate || plainRow
            QC2.ScrollBar.vertical: QC2.ScrollBar { policy: view.contentHeight > view.height ? QC2.ScrollBar.AlwaysOn
                                                                                         : QC2.ScrollBar.AsNeeded }

            TapHandler {
                onTapped: {
                    var place = view.mapToItem(view.contentItem, eventPoint.position.x, eventPoint.position.y)
                    var item = view.itemAt(place.x, place.y)
                    if (item && item.enabled)
                        root.choose(view.indexAt(place.x, place.y))
                }
            }

            FL.BodyLabel {
                objectName: "menuEmptyLabel"
                x: 16
                width: parent.width - 32
                height: 48
                verticalAlignment: Text.AlignVCenter
                wrapMode: Text.NoWrap
                elide: Text.ElideRight
                visible: view.count === 0
                color: Material.secondaryTextColor
                text: root.searchText !== "" ? qsTr("Ничего не найдено") : qsTr("Нет вариантов")
            }
        }
    }

    Component {
        id: plainRow

        QC2.ItemDelegate {
            id: row

            readonly property var content: root.rows.isModel ? model : modelData
            readonly property string iconName: partOf(root.iconNameRole)
            readonly property string iconSource: partOf(root.iconSourceRole)

            function partOf(role) {
                return role !== "" && content && content[role] ? String(content[role]) : ""
            }

            function textOf(value) {
                return value === undefined || value === null ? "" : String(value)
            }

            objectName: "menuRow" + index
            width: ListView.view ? ListView.view.width : implicitWidth
            height: 48
            leftPadding: rowIcon.visible ? 56 : 16
            focusPolicy: Qt.NoFocus
            highlighted: ListView.isCurrentItem
            text: textOf(root.rows.valueIn(content, root.textRole))
            Material.foreground: root.toView(root.rows.selectedIndex) === index ? Material.accent
                                                                                : Material.primaryTextColor
            Accessible.role: Accessible.ListItem
            Accessible.name: text
            Accessible.selected: root.toView(root.rows.selectedIndex) === index
            Accessible.onPressAction: root.choose(index)
            onClicked: root.choose(index)

            contentItem: FL.BodyLabel {
                font.pixelSize: 16
                verticalAlignment: Text.AlignVCenter
                wrapMode: Text.NoWrap
                elide: Text.ElideRight
                text: row.text
            }

            FL.Icon {
                id: rowIcon

                x: 16
                anchors.verticalCenter: parent.verticalCenter
                visible: name !== ""
                name: row.iconSource !== "" ? row.iconSource : row.iconName
            }
        }
    }
}
