// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQuick.Window 2.15
import QtQml 2.15
import Fluid.Controls 1.0 as FL
import Fluid.Core 1.0 as FLC

// A modal dialog in the middle of the window. Its content is made each time it opens, so that it always opens fresh;
// the content may have a function accept(), whose answer false keeps the dialog open, and a function aboutToShow().
QC2.Dialog {
    id: root

    property string positiveButtonText: qsTr("Ок") // a button without text is not there
    property string negativeButtonText: qsTr("Отмена")
    property alias positiveButton: positiveButton
    property alias negativeButton: negativeButton
    default property Component delegate
    readonly property Item item: loader.item
    property bool unloadOnClose: true
    property alias flickable: flickable
    property alias hardScroll: hardScroll
    property var acceptCallback: null // each is called after the content's own function, with the content
    property var aboutToShowCallback: null
    readonly property real maximumWidth: parent ? parent.width - 2 * FLC.Device.gridUnit : 0
    readonly property real maximumHeight: parent ? parent.height - FLC.Device.gridUnit : 0

    // What the positive button does.
    function submit() {
        if (!visible || internal.submitting || !positiveButton.enabled)
            return
        // Return in a field is told by the field and by the dialog, which is one wish all the same.
        internal.submitting = true
        Qt.callLater(internal.endSubmission)
        if (internal.take())
            accept()
    }

    parent: QC2.Overlay.overlay
    // In the middle, on whole pixels: an edge between two of them is a torn line.
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? Math.round((parent.height - height) / 2) : 0
    // Lines longer than that are no pleasure to read; what needs more room says so by its width.
    implicitWidth: Math.min(maximumWidth, 560, Math.max(280, implicitContentWidth + leftPadding + rightPadding,
                                                        titleMetrics.width + 50, implicitFooterWidth))
    implicitHeight: Math.min(maximumHeight, Math.ceil(implicitContentHeight + topPadding + bottomPadding
                                                      + implicitHeaderHeight + implicitFooterHeight))
    width: implicitWidth // so that nothing but what follows makes it smaller
    height: implicitHeight
    modal: true
    focus: true
    closePolicy: QC2.Popup.CloseOnEscape // a click beside would throw away what was typed
    leftPadding: 24
    rightPadding: 24
    topPadding: title === "" ? 24 : 12
    bottomPadding: footer.visible ? 8 : 24
    spacing: 0
    onAboutToShow: internal.prepare()
    onVisibleChanged: if (visible) internal.focusFirstField()
    onAccepted: if (!internal.submitting) internal.take()
    onClosed: internal.leave()
    onWidthChanged: Qt.callLater(internal.fit)
    onHeightChanged: Qt.callLater(internal.fit)
    onMaximumWidthChanged: Qt.callLater(internal.refit)
    onMaximumHeightChanged: Qt.callLater(internal.refit)

    header: FL.TitleLabel {
        objectName: "dialogTitle"
        visible: text !== ""
        leftPadding: 24
        rightPadding: 24
        topPadding: 20
        elide: Text.ElideRight
        maximumLineCount: 3
        wrapMode: Text.Wrap
        text: root.title
    }

    contentItem: Item {
        implicitWidth: internal.contentWidth
        implicitHeight: internal.contentHeight
        Keys.onReturnPressed: event.accepted = internal.submitFromField()
        Keys.onEnterPressed: event.accepted = internal.submitFromField()
        Window.onActiveFocusItemChanged: internal.reveal(Window.activeFocusItem)

        Flickable {
            id: flickable

            anchors.fill: parent
            anchors.leftMargin: -root.leftPadding
            anchors.rightMargin: -root.rightPadding
            contentWidth: width
            contentHeight: loader.height
            boundsBehavior: Flickable.StopAtBounds
            clip: contentHeight > height
            interactive: contentHeight > height

            QC2.ScrollBar.vertical: QC2.ScrollBar {
                policy: flickable.interactive ? QC2.ScrollBar.AsNeeded : QC2.ScrollBar.AlwaysOff
            }

            Loader {
                id: loader

                x: root.leftPadding
                width: flickable.width - root.leftPadding - root.rightPadding
                active: false
                focus: true
                sourceComponent: root.delegate
                onImplicitWidthChanged: Qt.callLater(internal.takeSize)
                onImplicitHeightChanged: Qt.callLater(internal.takeSize)
            }
        }

        HardMouseScroll {
            id: hardScroll

            flickable: flickable
        }

        FL.Divider {
            objectName: "topDivider"
            anchors.left: flickable.left
            anchors.right: flickable.right
            anchors.top: flickable.top
            visible: flickable.interactive && !flickable.atYBeginning
        }

        FL.Divider {
            objectName: "bottomDivider"
            anchors.left: flickable.left
            anchors.right: flickable.right
            anchors.bottom: flickable.bottom
            visible: flickable.interactive && !flickable.atYEnd
        }
    }

    footer: Item {
        implicitWidth: (positiveButton.visible ? positiveButton.implicitWidth : 0)
                       + (negativeButton.visible ? negativeButton.implicitWidth + buttons.spacing : 0) + 16
        implicitHeight: visible ? buttons.implicitHeight + 8 : 0
        visible: root.positiveButtonText !== "" || root.negativeButtonText !== ""

        // Side by side, and one above the other where there is no room.
        Flow {
            id: buttons

            x: 8
            width: parent.width - 16
            layoutDirection: Qt.RightToLeft
            spacing: 8

            QC2.Button {
                id: positiveButton

                objectName: "positiveButton"
                width: Math.min(implicitWidth, buttons.width)
                height: FLC.Device.touchSize
                visible: text !== ""
                flat: true
                focusPolicy: Qt.StrongFocus
                Material.foreground: Material.accent
                text: root.positiveButtonText
                Accessible.name: text
                Keys.onReturnPressed: clicked()
                Keys.onEnterPressed: clicked()
                onClicked: root.submit()
            }

            QC2.Button {
                id: negativeButton

                objectName: "negativeButton"
                width: Math.min(implicitWidth, buttons.width)
                height: FLC.Device.touchSize
                visible: text !== ""
                flat: true
                focusPolicy: Qt.StrongFocus
                Material.foreground: Material.accent
                text: root.negativeButtonText
                Accessible.name: text
                Keys.onReturnPressed: clicked()
                Keys.onEnterPressed: clicked()
                onClicked: root.reject()
            }
        }
    }

    TextMetrics {
        id: titleMetrics

        font: root.header.font
        text: root.title
    }

    Binding {
        target: root
        property: "width"
        value: root.maximumWidth
        when: internal.isTooWide
        restoreMode: Binding.RestoreBindingOrValue
    }

    Binding {
        target: root
        property: "height"
        value: root.maximumHeight
        when: internal.isTooHigh
        restoreMode: Binding.RestoreBindingOrValue
    }

    QtObject {
        id: internal

        property Item previousFocus: null
        property bool submitting: false
        property bool isTooWide: false // for the window, by the width that the dialog's user gave
        property bool isTooHigh: false

        // Taken a moment after it changes: texts wrap anew while the dialog still looks for its size.
        property real contentWidth: 0
        property real contentHeight: 0

        function takeSize() {
            contentWidth = loader.implicitWidth
            contentHeight = loader.implicitHeight
        }

        function call(name) {
            return root.item && typeof root.item[name] === "function" ? root.item[name]() : undefined
        }

        function prepare() {
            previousFocus = root.parent ? root.parent.Window.activeFocusItem : null
            submitting = false
            refit()
            loader.active = true
            flickable.contentY = 0
            call("aboutToShow")
            takeSize()
            if (root.aboutToShowCallback)
                root.aboutToShowCallback(root.item)
        }

        function take() {
            if (call("accept") === false)
                return false
            if (root.acceptCallback)
                root.acceptCallback(root.item)
            return true
        }

        function endSubmission() {
            submitting = false
        }

        // In a text of several lines the key is a new line, and on a button it is that button.
        function submitFromField() {
            if (!(root.contentItem.Window.activeFocusItem instanceof TextInput) || root.positiveButtonText === "")
                return false
            root.submit()
            return true
        }

        function isInside(inner, outer) {
            while (inner && inner !== outer)
                inner = inner.parent
            return inner === outer
        }

        function firstField(parent) {
            for (var i = 0; i < parent.children.length; ++i) {
                var child = parent.children[i]
                if (!child.visible || !child.enabled)
                    continue
                var found = child.activeFocusOnTab || child instanceof TextInput ? child : firstField(child)
                if (found)
                    return found
            }
            return null
        }

        function focusFirstField() {
            loader.forceActiveFocus()
            var focused = loader.Window.activeFocusItem
            if (focused !== loader && focused !== root.item && isInside(focused, loader))
                return // the content has chosen
            var field = firstField(loader)
            if (field)
                field.forceActiveFocus(Qt.TabFocusReason)
            else if (positiveButton.visible && positiveButton.enabled)
                positiveButton.forceActiveFocus()
        }

        // What gets the focus by a key is scrolled into view.
        function reveal(focused) {
            if (!root.visible || !flickable.interactive || !focused || !isInside(focused, loader))
                return
            var top = focused.mapToItem(loader, 0, 0).y
            var bottom = Math.min(top + focused.height, top + flickable.height)
            if (top < flickable.contentY)
                flickable.contentY = top
            else if (bottom > flickable.contentY + flickable.height)
                flickable.contentY = bottom - flickable.height
        }

        function leave() {
            if (root.unloadOnClose)
                loader.active = false
            if (previousFocus && previousFocus.visible)
                previousFocus.forceActiveFocus()
            previousFocus = null
        }

        function fit() {
            if (root.maximumWidth <= 0 || root.maximumHeight <= 0)
                return // no window, or none with a size
            if (root.width > root.maximumWidth)
                isTooWide = true
            if (root.height > root.maximumHeight)
                isTooHigh = true
        }

        // The window has another size: what the dialog's user wants may fit now.
        function refit() {
            isTooWide = false
            isTooHigh = false
            fit()
        }
    }
}
