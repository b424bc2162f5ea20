// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQuick.Layouts 1.15
import QtQml.Models 2.15
import Fluid.Controls 1.0 as FL
import Fluid.Core 1.0 as FLC

// A list and the page of its current row: side by side on a wide screen, where some row is always the current one; on a
// narrow one the page lies over the list until the user goes back, and without a page no row is current. The page is
// made by the delegate from what the row has: index, model or modelData. By keyboard: arrows go along the rows, Return
// and Space choose one, Escape goes back. A window that has a shortcut for the way back asks here first.
FocusScope {
    id: root

    property var model
    property Component listDelegate: null
    property Component delegate: null
    property Component footer: null // stands below the list
    property int currentIndex: -1
    property int listWidth: 200
    property bool mobile: width < 500
    property bool backRow: true // whether the page on a narrow screen has its own way back
    readonly property Item currentItem: internal.item // the page of the current row
    readonly property alias list: list
    readonly property alias page: pagePane // where the page is
    readonly property int count: pages.items.count
    readonly property bool canGoBack: mobile && currentItem !== null

    // What a click on a row does.
    function select(row) {
        currentIndex = row
        if (mobile && currentItem)
            currentItem.forceActiveFocus()
    }

    function goBack() {
        if (!canGoBack)
            return
        var row = currentIndex
        currentIndex = -1
        internal.focusRow(row)
    }

    implicitWidth: 640
    implicitHeight: 480
    onCurrentIndexChanged: internal.show()
    onModelChanged: Qt.callLater(internal.follow)
    onDelegateChanged: Qt.callLater(internal.follow)
    onMobileChanged: Qt.callLater(internal.follow)
    Component.onCompleted: {
        internal.completed = true
        internal.follow()
    }
    Keys.onPressed: {
        if (!canGoBack || !internal.leadsBack(event))
            return
        event.accepted = true
        goBack()
    }

    QtObject {
        id: internal

        property bool completed: false
        property bool inserted: false // since the rows were looked at last
        property Item item: null
        property var row: undefined // of a list in a variable, what the page was made from

        function leadsBack(event) {
            return event.key === Qt.Key_Escape || event.key === Qt.Key_Back || event.matches(StandardKey.Back)
        }

        function valueAt(index) {
            return Array.isArray(root.model) ? root.model[index] : undefined
        }

        function isSame(one, other) {
            if (one === other)
                return one !== undefined
            if (!one || !other || typeof one !== "object" || typeof other !== "object")
                return false
            var names = Object.keys(one)
            return names.length === Object.keys(other).length
                   && names.every(function(name) { return one[name] === other[name] })
        }

        // The row that stands for the one whose page is gone. A list made anew may hold it at another place, and one that
        // came with new rows at the same place; a row that was only removed takes its page with it on a narrow screen.
        function substitute() {
            var index = root.currentIndex
            if (Array.isArray(root.model) && row !== undefined) {
                for (var i = 0; i < root.count; ++i) {
                    if (isSame(valueAt(i), row))
                        return i
                }
                return root.mobile ? -1 : 0
            }
            if (index < root.count && (inserted || !root.mobile))
                return index
            return root.mobile ? -1 : root.count - 1
        }

        // Brings the current row up to date after the rows or the shape have changed.
        function follow() {
            if (!completed)
                return
            var index = root.currentIndex
            if (shownPages.count > 0)
                index = shownPages.get(0).itemsIndex
            else if (index >= 0)
                index = root.count > 0 ? substitute() : -1
            if (index < 0 && !root.mobile && root.count > 0)
                index = 0
            inserted = false
            root.currentIndex = index
            show()
        }

        function show() {
            if (!completed)
                return
            var index = root.currentIndex
            var isShown = shownPages.count > 0 && shownPages.get(0).itemsIndex === index
            if (!isShown && shownPages.count > 0)
                shownPages.remove(0, shownPages.count)
            if (!isShown && root.delegate && index >= 0 && index < root.count)
                pages.items.addGroups(index, 1, "shown")
            row = valueAt(index)
            if (list.currentIndex !== index)
                list.currentIndex = index
            if (index < 0 || index >= root.count)
                Qt.callLater(follow) // no such row
        }

        function focusRow(index) {
            list.positionViewAtIndex(index, ListView.Contain)
            var item = list.itemAtIndex(index)
            if (item)
                item.forceActiveFocus(Qt.TabFocusReason)
            else
                list.forceActiveFocus()
        }

        function focusNext(event, step) {
            for (var i = 0; i < list.count; ++i) {
                var item = list.itemAtIndex(i)
                if (item && item.activeFocus) {
                    event.accepted = i + step >= 0 && i + step < list.count
                    if (event.accepted)
                        focusRow(i + step)
                    return
                }
            }
            event.accepted = false
        }
    }

    // Of all rows only the current one is in the group, and so has a page.
    DelegateModel {
        id: pages

        model: root.model
        delegate: root.delegate
        filterOnGroup: "shown"
        groups: DelegateModelGroup {
            id: shownPages

            name: "shown"
        }
        items.onChanged: {
            internal.inserted = internal.inserted || inserted.length > 0
            Qt.callLater(internal.follow)
        }
    }

    FocusScope {
        id: listPane

        width: root.mobile ? root.width : Math.min(root.listWidth, root.width)
        height: root.height
        visible: !root.canGoBack
        focus: true

        ColumnLayout {
            anchors.fill: parent
            spacing: 0

            ListView {
                id: list

                readonly property Item editor: root

                objectName: "editorList"
                Layout.fillWidth: true
                Layout.fillHeight: true
                focus: true
                clip: true
                boundsBehavior: Flickable.StopAtBounds
                keyNavigationEnabled: false
                highlightFollowsCurrentItem: true
                highlightMoveDuration: 0
                currentIndex: -1
                model: root.model
                delegate: root.listDelegate
                Accessible.role: Accessible.List
                Accessible.name: qsTr("Список")
                // It goes its own way when its rows are made anew.
                onCurrentIndexChanged: {
                    if (currentIndex !== root.currentIndex)
                        Qt.callLater(internal.follow)
                }
                Keys.onUpPressed: internal.focusNext(event, -1)
                Keys.onDownPressed: internal.focusNext(event, 1)
                QC2.ScrollIndicator.vertical: QC2.ScrollIndicator {}
            }

            Loader {
                objectName: "editorFooter"
                Layout.fillWidth: true
                visible: status === Loader.Ready
                sourceComponent: root.footer
            }
        }
    }

    FL.Divider {
        x: listPane.width
        width: 1
        height: root.height
        visible: !root.mobile
    }

    FocusScope {
        id: pagePane

        objectName: "editorPage"
        x: root.mobile ? 0 : listPane.width + 1
        width: Math.max(0, root.width - x)
        height: root.height
        visible: !root.mobile || root.canGoBack

        QC2.ToolButton {
            id: backButton

            objectName: "editorBackButton"
            width: parent.width
            height: FLC.Device.touchSize
            leftPadding: 12
            visible: root.canGoBack && root.backRow
            text: qsTr("Назад")
            focusPolicy: Qt.StrongFocus
            Keys.onReturnPressed: clicked()
            Keys.onEnterPressed: clicked()
            onClicked: root.goBack()

            contentItem: RowLayout {
                spacing: 12

                FL.Icon {
                    Layout.preferredWidth: 24
                    Layout.preferredHeight: 24
                    name: "navigation/arrow_back"
                }

                FL.SubheadingLabel {
                    Layout.fillWidth: true
                    text: backButton.text
                }
            }
        }

        FocusScope {
            id: holder

            y: backButton.visible ? backButton.height : 0
            width: parent.width
            height: parent.height - y
            focus: true

            Repeater {
                model: pages
                onItemAdded: {
                    item.width = Qt.binding(function() { return holder.width })
                    item.height = Qt.binding(function() { return holder.height })
                    internal.item = item
                }
                onItemRemoved: {
                    if (internal.item === item)
                        internal.item = null
                }
            }
        }
    }
}
