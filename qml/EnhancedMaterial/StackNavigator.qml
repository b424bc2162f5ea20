// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2

// Knows the pages of a stack by their links, and puts the one that is asked for in its place.
Item {
    id: root

    default property list<StackItem> items
    property QC2.StackView stackView: null
    property string initial
    readonly property string currentLink: stackView && stackView.currentItem ? stackView.currentItem.objectName : ""
    readonly property string lastLink: internal.lastLink

    // The page of that link becomes the current one, with those properties; null where nothing has that link.
    function show(name, customProps) {
        internal.complete()
        var wanted = internal.links[name]
        if (!wanted) {
            console.warn("Could not find NAV PAGE '%1'".arg(name))
            return null
        }
        var found = stackView.find(function(item) { return item.objectName === name }, QC2.StackView.DontLoad)
        if (found) {
            if (found !== stackView.currentItem)
                stackView.pop(found)
            internal.assign(found, customProps)
        } else {
            internal.place(wanted, customProps)
        }
        internal.lastLink = name
        return stackView.currentItem
    }

    // An empty stack, and no page that anything remembers.
    function clear() {
        if (stackView)
            stackView.clear()
        for (var link in internal.instances)
            internal.instances[link].destroy()
        internal.instances = {}
    }

    visible: false
    onItemsChanged: internal.rebuild()
    onInitialChanged: internal.start()
    onStackViewChanged: internal.start()
    Component.onCompleted: internal.complete()

    QtObject {
        id: internal

        property bool completed: false
        property string lastLink
        property var links: ({})
        property var instances: ({})

        // Whoever asks for a page before the window is complete finds everything in its place.
        function complete() {
            if (completed || !root.stackView)
                return
            completed = true
            rebuild()
            start()
        }

        function rebuild() {
            if (!completed)
                return
            var known = {}
            for (var i = 0; i < root.items.length; ++i)
                known[root.items[i].link] = root.items[i]
            links = known
            for (var link in known) {
                if (known[link].preload && known[link].cache)
                    instance(known[link])
            }
        }

        function start() {
            if (!completed || !root.stackView)
                return
            root.stackView.clear()
            if (root.initial !== "")
                root.show(root.initial)
        }

        function instance(item) {
            if (!instances[item.link])
                instances[item.link] = item.component.createObject(root, { objectName: item.link })
            return instances[item.link]
        }

        function assign(page, values) {
            for (var key in values)
                page[key] = values[key]
        }

        function currentLevel() {
            var item = links[root.currentLink]
            return item ? item.level : -1
        }

        function place(item, customProps) {
            var stack = root.stackView
            var isBelow = stack.depth < item.level
            if (stack.depth > item.level) {
                while (stack.depth > 1 && currentLevel() !== item.level)
                    stack.pop(QC2.StackView.Immediate)
            }
            var page = item.cache ? instance(item) : item.component
            var properties = {}
            if (item.cache)
                assign(page, customProps)
            else
                assign(properties, customProps)
            properties.objectName = item.link
            if (isBelow)
                stack.push(page, properties)
            else
                stack.replace(stack.currentItem, page, properties)
        }
    }
}
